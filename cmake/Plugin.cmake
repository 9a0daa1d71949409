# The plug-in as a VST3 bundle, an LV2 bundle and a standalone program.

# Hosts do not load bundles that are built with a sanitizer, so those builds do without the second one.
if (CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT ORLO_SANITIZE)
    set (lv2_default ON)
else()
    set (lv2_default OFF)
endif()

option (ORLO_LV2 "Build the LV2 bundle" ${lv2_default})
set (orlo_formats VST3 Standalone)

# Debian's source of JUCE lacks the client for Audio Units.
if (APPLE AND EXISTS "${juce_dir}/modules/juce_audio_plugin_client/AU")
    list (APPEND orlo_formats AU)
endif()

if (ORLO_LV2)
    list (APPEND orlo_formats LV2)
endif()

# Sessions find the plug-in by this, so it never changes.
set (ORLO_LV2_URI "https://morlek.example/plugins/orlo")

# The build loads the new bundles to generate their manifests. An instance creates folders for its presets, and the
# LV2 bundle its window, which would ask the vendor's site for a new version. None of this must reach the user's home,
# system folders, a screen or the network, so JUCE's commands run with other folders and settings and without a display.
if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set (build_home "${PROJECT_BINARY_DIR}/home")
    file (MAKE_DIRECTORY "${build_home}/share/Morlek/Orlo")
    file (WRITE "${build_home}/.config/Morlek/Orlo/Orlo.settings"
        "<PROPERTIES><VALUE name=\"settings\"><settings checkForUpdates=\"0\"/></VALUE></PROPERTIES>\n")
    set_property (DIRECTORY PROPERTY RULE_LAUNCH_CUSTOM
        "\"${CMAKE_COMMAND}\" -E env --unset=XDG_CONFIG_HOME --unset=XDG_DATA_HOME --unset=DISPLAY \"HOME=${build_home}\" \"XDG_DATA_DIRS=${build_home}/share\"")
endif()

juce_add_plugin (Orlo
    PRODUCT_NAME "Orlo"
    PLUGIN_NAME "Orlo"
    DESCRIPTION "Real-time spectrogram"
    VERSION "${PROJECT_VERSION}"
    COMPANY_NAME "Morlek"
    COMPANY_WEBSITE "${ORLO_VENDOR_SITE}"
    BUNDLE_ID "com.morlek.orlo"
    PLUGIN_MANUFACTURER_CODE Mrlk
    PLUGIN_CODE Orlo
    FORMATS ${orlo_formats}
    LV2URI "${ORLO_LV2_URI}"
    AU_MAIN_TYPE kAudioUnitType_Effect
    MICROPHONE_PERMISSION_ENABLED TRUE
    MICROPHONE_PERMISSION_TEXT "Orlo shows the spectrogram of what comes in at the sound input."
    VST3_CATEGORIES Fx Analyzer
    VST3_AUTO_MANIFEST TRUE
    EDITOR_WANTS_KEYBOARD_FOCUS FALSE
    ICON_BIG "${PROJECT_SOURCE_DIR}/resources/application/icons/orlo-512.png"
    ICON_SMALL "${PROJECT_SOURCE_DIR}/resources/application/icons/orlo-32.png"
    COPY_PLUGIN_AFTER_BUILD FALSE)

target_sources (Orlo PRIVATE PluginMain.cpp)

# JUCE links its plug-in client module into the plug-in, and with it the sources of every module that this depends
# on. orlo_juce contains these sources already, so the module is removed from the links.
get_target_property (orlo_links Orlo LINK_LIBRARIES)
list (REMOVE_ITEM orlo_links juce::juce_audio_plugin_client)
set_property (TARGET Orlo PROPERTY LINK_LIBRARIES "${orlo_links}")
target_link_libraries (Orlo PUBLIC orlo_product PRIVATE orlo_standalone)

target_sources (Orlo_Standalone PRIVATE standalone/StandaloneApplication.cpp)
target_compile_definitions (Orlo_Standalone PRIVATE JUCE_USE_CUSTOM_PLUGIN_STANDALONE_APP=1)
target_link_libraries (Orlo_Standalone PRIVATE orlo_icon_data orlo_standalone)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set (vst3_exports "${CMAKE_CURRENT_LIST_DIR}/Vst3Exports.map")
    target_link_options (Orlo_VST3 PRIVATE "LINKER:--version-script=${vst3_exports}")
    set_property (TARGET Orlo_VST3 APPEND PROPERTY LINK_DEPENDS "${vst3_exports}")
endif()

if (ORLO_LV2)
    # Debian's JUCE would otherwise use the plug-in's name.
    target_compile_definitions (Orlo_LV2 PRIVATE "JucePlugin_LV2URI=\"${ORLO_LV2_URI}\"")

    add_custom_command (TARGET Orlo_LV2 POST_BUILD
        COMMAND "${CMAKE_COMMAND}"
                -D "BUNDLE=$<TARGET_FILE_DIR:Orlo_LV2>"
                -D "URI=${ORLO_LV2_URI}"
                -D "SITE=${ORLO_VENDOR_SITE}"
                -D "VERSION=${PROJECT_VERSION}"
                -P "${CMAKE_CURRENT_LIST_DIR}/FinishLv2.cmake"
        VERBATIM)
    set_property (TARGET Orlo_LV2 APPEND PROPERTY LINK_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/FinishLv2.cmake")

    if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
        set (lv2_exports "${CMAKE_CURRENT_LIST_DIR}/Lv2Exports.map")
        target_link_options (Orlo_LV2 PRIVATE "LINKER:--version-script=${lv2_exports}")
        set_property (TARGET Orlo_LV2 APPEND PROPERTY LINK_DEPENDS "${lv2_exports}")
    endif()
endif()

#---------------------------------------------------------------------------------------------------
# CLAP, where a builder has clap-juce-extensions. Nothing of it is part of this project.
if (ORLO_CLAP_JUCE_EXTENSIONS_DIR)
    add_subdirectory ("${ORLO_CLAP_JUCE_EXTENSIONS_DIR}" "${PROJECT_BINARY_DIR}/clap" EXCLUDE_FROM_ALL SYSTEM)
    clap_juce_extensions_plugin (TARGET Orlo CLAP_ID com.morlek.orlo CLAP_FEATURES audio-effect analyzer)
    add_custom_target (orlo_clap ALL DEPENDS Orlo_CLAP)

    if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
        set (clap_exports "${CMAKE_CURRENT_LIST_DIR}/ClapExports.map")
        target_link_options (Orlo_CLAP PRIVATE "LINKER:--version-script=${clap_exports}")
        set_property (TARGET Orlo_CLAP APPEND PROPERTY LINK_DEPENDS "${clap_exports}")
    endif()
endif()
