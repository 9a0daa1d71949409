# What `cmake --install` puts in place: component "plugin" the VST3 bundle, component "presets" the factory
# presets and the folder for other designers' sets.
if (APPLE)
    set (ORLO_VST3_FOLDER "/Library/Audio/Plug-Ins/VST3")
    set (ORLO_DATA_FOLDER "/Library/Application Support")
elseif (WIN32)
    file (TO_CMAKE_PATH "$ENV{CommonProgramFiles}/VST3" ORLO_VST3_FOLDER)
    file (TO_CMAKE_PATH "$ENV{ProgramData}" ORLO_DATA_FOLDER)
else()
    # The standard folder of VST3 plug-ins. CMAKE_INSTALL_LIBDIR may contain the architecture's name, which it lacks.
    set (ORLO_VST3_FOLDER "lib/vst3")
    set (ORLO_DATA_FOLDER "${CMAKE_INSTALL_DATADIR}")
endif()

install (
    DIRECTORY "$<TARGET_GENEX_EVAL:Orlo_VST3,$<TARGET_PROPERTY:Orlo_VST3,JUCE_PLUGIN_ARTEFACT_FILE>>"
    DESTINATION "${ORLO_VST3_FOLDER}"
    USE_SOURCE_PERMISSIONS
    COMPONENT plugin)

install (
    DIRECTORY "${PROJECT_SOURCE_DIR}/resources/presets"
    DESTINATION "${ORLO_DATA_FOLDER}/Morlek/${PROJECT_NAME}"
    COMPONENT presets
    FILES_MATCHING PATTERN "*.mkpreset")

install (
    DIRECTORY
    DESTINATION "${ORLO_DATA_FOLDER}/Morlek/${PROJECT_NAME}/DesignersPresets"
    COMPONENT presets)
