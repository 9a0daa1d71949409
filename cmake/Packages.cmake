# What `cpack` makes; scripts/package calls it. On Linux two packages each for Debian and for RPM, "orlo" with the
# plug-ins, the standalone program and the presets and "orlo-tools" with orlo-render and orlo-host, and an archive for
# one user; on macOS and Windows an installer each, with the formats as choices.
set (CPACK_PACKAGE_NAME orlo)
set (CPACK_PACKAGE_VENDOR "Morlek")
set (CPACK_PACKAGE_CONTACT "Morlek <orlo@morlek.example>")
set (CPACK_PACKAGE_HOMEPAGE_URL "${ORLO_VENDOR_SITE}")
set (CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set (CPACK_PACKAGE_CHECKSUM SHA256)
set (CPACK_VERBATIM_VARIABLES ON)
set (CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set (CPACK_THREADS 1) # several threads compress to other bytes
set (CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set (CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/PackagesOfGenerator.cmake")
set (CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/PackagesTimes.cmake")

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    include (PackagesLinux)
elseif (APPLE)
    set (CPACK_GENERATOR productbuild)
    set (CPACK_COMPONENTS_ALL plugin application presets manual)
    set (CPACK_PRODUCTBUILD_IDENTIFIER com.morlek.orlo)
    set (CPACK_PRODUCTBUILD_IDENTITY_NAME "$ENV{ORLO_INSTALLER_IDENTITY}") # unsigned if empty
    set (CPACK_PACKAGING_INSTALL_PREFIX "/")
    set (CPACK_PACKAGE_FILE_NAME "orlo-${PROJECT_VERSION}-macos")
elseif (WIN32)
    set (CPACK_GENERATOR NSIS)
    set (CPACK_COMPONENTS_ALL plugin application presets manual)
    set (CPACK_PACKAGE_INSTALL_DIRECTORY "Morlek/Orlo")
    set (CPACK_NSIS_DISPLAY_NAME "Orlo")
    set (CPACK_NSIS_PACKAGE_NAME "Orlo")
    set (CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
    set (CPACK_PACKAGE_EXECUTABLES Orlo "Orlo")
    set (CPACK_NSIS_EXECUTABLES_DIRECTORY ".")

    # Hosts look for plug-ins in folders that all products share, and the plug-in for its presets in that of all users,
    # which an installer of CPack cannot name.
    set (CPACK_NSIS_EXTRA_INSTALL_COMMANDS [[
  SetShellVarContext all
  CreateDirectory "$COMMONFILES64\VST3"
  CopyFiles /SILENT "$INSTDIR\VST3\*.*" "$COMMONFILES64\VST3"
  RMDir /r "$INSTDIR\VST3"
  CreateDirectory "$APPDATA"
  CopyFiles /SILENT "$INSTDIR\ProgramData\*.*" "$APPDATA"
  RMDir /r "$INSTDIR\ProgramData"
]])
    set (CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS [[
  SetShellVarContext all
  RMDir /r "$COMMONFILES64\VST3\Orlo.vst3"
  RMDir /r "$APPDATA\Morlek\Orlo\presets"
  RMDir "$APPDATA\Morlek\Orlo\DesignersPresets"
  RMDir "$APPDATA\Morlek\Orlo"
  RMDir "$APPDATA\Morlek"
]])
    set (CPACK_PACKAGE_FILE_NAME "orlo-${PROJECT_VERSION}-windows-x64")
endif()

# Everything that is installed, and nothing else.
add_custom_target (orlo_packaged)

foreach (target IN ITEMS Orlo_VST3 Orlo_LV2 Orlo_AU Orlo_CLAP Orlo_Standalone orlo-host orlo-render)
    if (TARGET ${target})
        add_dependencies (orlo_packaged ${target})
    endif()
endforeach()

include (CPack)

cpack_add_component (plugin DISPLAY_NAME "Plug-in" DESCRIPTION "For music software" GROUP orlo)
cpack_add_component (application DISPLAY_NAME "Program" DESCRIPTION "Shows the system's sound input or a file" GROUP orlo)
cpack_add_component (presets DISPLAY_NAME "Presets" DESCRIPTION "The factory presets" GROUP orlo)
cpack_add_component (manual DISPLAY_NAME "Manual" DESCRIPTION "As web pages and as a book" GROUP orlo)
cpack_add_component_group (orlo DISPLAY_NAME "Orlo" EXPANDED)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    cpack_add_component (tools GROUP tools)
    cpack_add_component (archive GROUP archive)
    cpack_add_component_group (tools)
    cpack_add_component_group (archive)
endif()
