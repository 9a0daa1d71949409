# The plug-in as a VST3 bundle and as a standalone program.

# The build loads the new bundle to generate its manifest, and an instance creates folders for its presets. These
# must not appear in the user's home or in system folders, so JUCE's commands run with other folders set.
if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set (build_home "${PROJECT_BINARY_DIR}/home")
    file (MAKE_DIRECTORY "${build_home}/share/Morlek/Orlo")
    set_property (DIRECTORY PROPERTY RULE_LAUNCH_CUSTOM
        "\"${CMAKE_COMMAND}\" -E env --unset=XDG_CONFIG_HOME \"HOME=${build_home}\" \"XDG_DATA_DIRS=${build_home}/share\"")
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
    FORMATS VST3 Standalone
    VST3_CATEGORIES Fx Analyzer
    VST3_AUTO_MANIFEST TRUE
    EDITOR_WANTS_KEYBOARD_FOCUS FALSE
    COPY_PLUGIN_AFTER_BUILD FALSE)

target_sources (Orlo PRIVATE PluginMain.cpp)

# JUCE links its plug-in client module into the plug-in, and with it the sources of every module that this depends
# on. orlo_juce contains these sources already, so the module is removed from the links.
get_target_property (orlo_links Orlo LINK_LIBRARIES)
list (REMOVE_ITEM orlo_links juce::juce_audio_plugin_client)
set_property (TARGET Orlo PROPERTY LINK_LIBRARIES "${orlo_links}")
target_link_libraries (Orlo PUBLIC orlo_product)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    set (vst3_exports "${CMAKE_CURRENT_LIST_DIR}/Vst3Exports.map")
    target_link_options (Orlo_VST3 PRIVATE "LINKER:--version-script=${vst3_exports}")
    set_property (TARGET Orlo_VST3 APPEND PROPERTY LINK_DEPENDS "${vst3_exports}")
endif()
