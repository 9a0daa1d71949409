# What `cmake --install` puts in place, in components: "plugin" the bundles for hosts, "presets" the factory presets and
# the folder for other designers' sets; on Linux also "application" the standalone program, "tools" orlo-render and
# orlo-host, and "archive" the scripts that install an unpacked archive for one user.
option (ORLO_INSTALLER "Install relative to the prefix, as an installer for macOS or Windows wants it" OFF)

if (APPLE)
    # The prefix of the installer is "/".
    set (root "/")

    if (ORLO_INSTALLER)
        set (root "")
    endif()

    set (ORLO_VST3_FOLDER "${root}Library/Audio/Plug-Ins/VST3")
    set (ORLO_AU_FOLDER "${root}Library/Audio/Plug-Ins/Components")
    set (ORLO_CLAP_FOLDER "${root}Library/Audio/Plug-Ins/CLAP")
    set (ORLO_APPLICATION_FOLDER "${root}Applications")
    set (ORLO_DATA_FOLDER "${root}Library/Application Support")
elseif (WIN32 AND ORLO_INSTALLER)
    # The installer moves plug-ins and data to where they belong; see Packages.cmake.
    set (ORLO_VST3_FOLDER "VST3")
    set (ORLO_CLAP_FOLDER "CLAP")
    set (ORLO_DATA_FOLDER "ProgramData")
    set (ORLO_APPLICATION_FOLDER ".")
elseif (WIN32)
    file (TO_CMAKE_PATH "$ENV{CommonProgramFiles}/VST3" ORLO_VST3_FOLDER)
    file (TO_CMAKE_PATH "$ENV{CommonProgramFiles}/CLAP" ORLO_CLAP_FOLDER)
    file (TO_CMAKE_PATH "$ENV{ProgramData}" ORLO_DATA_FOLDER)
    set (ORLO_APPLICATION_FOLDER ".")
else()
    # The standard folders of plug-ins. CMAKE_INSTALL_LIBDIR may contain the architecture's name, which they lack.
    set (ORLO_VST3_FOLDER "lib/vst3")
    set (ORLO_LV2_FOLDER "lib/lv2")
    set (ORLO_CLAP_FOLDER "lib/clap")
    set (ORLO_DATA_FOLDER "${CMAKE_INSTALL_DATADIR}")
endif()

# orlo_install_plugin (FORMAT FOLDER): installs the bundle of a format, if it is built.
function (orlo_install_plugin format folder)
    set (target "Orlo_${format}")

    if (NOT TARGET ${target})
        return()
    endif()

    # An LV2 bundle is the folder of its library, a CLAP one may be a single file; the others know their own path.
    if (format STREQUAL "LV2")
        set (bundle "$<TARGET_FILE_DIR:${target}>")
    elseif (format STREQUAL "CLAP" AND NOT APPLE)
        install (PROGRAMS "$<TARGET_FILE:${target}>" DESTINATION "${folder}" COMPONENT plugin)
        return()
    elseif (format STREQUAL "CLAP")
        set (bundle "$<TARGET_BUNDLE_DIR:${target}>")
    else()
        set (bundle "$<TARGET_GENEX_EVAL:${target},$<TARGET_PROPERTY:${target},JUCE_PLUGIN_ARTEFACT_FILE>>")
    endif()

    # Libraries are loaded, not run.
    install (
        DIRECTORY "${bundle}"
        DESTINATION "${folder}"
        COMPONENT plugin
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
        PATTERN "Contents/MacOS/*" PERMISSIONS
            OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
endfunction()

orlo_install_plugin (VST3 "${ORLO_VST3_FOLDER}")
orlo_install_plugin (LV2 "${ORLO_LV2_FOLDER}")
orlo_install_plugin (AU "${ORLO_AU_FOLDER}")
orlo_install_plugin (CLAP "${ORLO_CLAP_FOLDER}")

install (
    DIRECTORY "${PROJECT_SOURCE_DIR}/resources/presets"
    DESTINATION "${ORLO_DATA_FOLDER}/Morlek/${PROJECT_NAME}"
    COMPONENT presets
    FILES_MATCHING PATTERN "*.mkpreset")

install (
    DIRECTORY
    DESTINATION "${ORLO_DATA_FOLDER}/Morlek/${PROJECT_NAME}/DesignersPresets"
    COMPONENT presets)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    include (InstallLinux)
else()
    install (TARGETS Orlo_Standalone
        BUNDLE DESTINATION "${ORLO_APPLICATION_FOLDER}" COMPONENT application
        RUNTIME DESTINATION "${ORLO_APPLICATION_FOLDER}" COMPONENT application)
endif()
