# The standalone program, the tools, and the files that a desktop and a package want beside them.
set (linux_files "${PROJECT_BINARY_DIR}/linux")
set (application_files "${PROJECT_SOURCE_DIR}/resources/application")
set (application_id com.morlek.orlo)
string (TIMESTAMP ORLO_RELEASE_DATE "%Y-%m-%d" UTC) # of SOURCE_DATE_EPOCH, if that is set
string (TIMESTAMP changelog_date "%a, %d %b %Y %H:%M:%S +0000" UTC)

find_program (ORLO_GZIP gzip REQUIRED)

# orlo_install_compressed (FILE FOLDER NAME COMPONENT): installs a file as NAME.gz, of the same bytes at any time.
function (orlo_install_compressed file folder name component)
    file (MAKE_DIRECTORY "${linux_files}")
    set (compressed "${linux_files}/${component}-${name}.gz")
    set_property (DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    execute_process (
        COMMAND "${ORLO_GZIP}" --best --no-name --stdout "${file}"
        OUTPUT_FILE "${compressed}"
        COMMAND_ERROR_IS_FATAL ANY)
    install (FILES "${compressed}" DESTINATION "${folder}" RENAME "${name}.gz" COMPONENT ${component})
endfunction()

# Every package states its licence and its changes.
file (READ "${PROJECT_SOURCE_DIR}/LICENSE" ORLO_LICENCE)
file (READ "${PROJECT_SOURCE_DIR}/THIRD_PARTY_NOTICES.md" ORLO_NOTICES)
file (READ "${PROJECT_SOURCE_DIR}/resources/fonts/Barlow-OFL.txt" ORLO_FONT_LICENCE)
configure_file ("${PROJECT_SOURCE_DIR}/packaging/linux/copyright.in" "${linux_files}/copyright" @ONLY)

# orlo_install_documents (PACKAGE COMPONENT)
function (orlo_install_documents package component)
    set (documents "${CMAKE_INSTALL_DATADIR}/doc/${package}")
    install (FILES "${linux_files}/copyright" DESTINATION "${documents}" COMPONENT ${component})

    file (CONFIGURE OUTPUT "${linux_files}/${package}-changelog" @ONLY CONTENT
"${package} (${PROJECT_VERSION}) stable; urgency=medium

  * Version ${PROJECT_VERSION}; CHANGELOG.md in the sources tells what is new.

 -- Morlek <orlo@morlek.example>  ${changelog_date}
")
    orlo_install_compressed ("${linux_files}/${package}-changelog" "${documents}" changelog ${component})
endfunction()

#---------------------------------------------------------------------------------------------------
install (PROGRAMS "$<TARGET_FILE:Orlo_Standalone>" DESTINATION bin RENAME orlo COMPONENT application)
install (
    FILES "${application_files}/${application_id}.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications"
    COMPONENT application)

configure_file (
    "${application_files}/${application_id}.metainfo.xml.in" "${linux_files}/${application_id}.metainfo.xml" @ONLY)
install (
    FILES "${linux_files}/${application_id}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo"
    COMPONENT application)

set (icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
install (
    FILES "${application_files}/${application_id}.svg"
    DESTINATION "${icons}/scalable/apps"
    COMPONENT application)

foreach (size IN ITEMS 16 22 24 32 48 64 128 256 512)
    install (
        FILES "${application_files}/icons/orlo-${size}.png"
        DESTINATION "${icons}/${size}x${size}/apps"
        RENAME "${application_id}.png"
        COMPONENT application)
endforeach()

set (man "${CMAKE_INSTALL_MANDIR}/man1")
orlo_install_compressed ("${PROJECT_SOURCE_DIR}/docs/man/orlo.1" "${man}" orlo.1 application)
orlo_install_documents (orlo application)

#---------------------------------------------------------------------------------------------------
# The folder tools is read later, but its programs are known by their names.
if (ORLO_BUILD_TOOLS)
    foreach (tool IN ITEMS orlo-host orlo-render)
        install (PROGRAMS "$<TARGET_FILE:${tool}>" DESTINATION bin COMPONENT tools)
        orlo_install_compressed ("${PROJECT_SOURCE_DIR}/docs/man/${tool}.1" "${man}" ${tool}.1 tools)
    endforeach()

    orlo_install_documents (orlo-tools tools)
endif()

#---------------------------------------------------------------------------------------------------
install (
    PROGRAMS
        "${PROJECT_SOURCE_DIR}/packaging/linux/install.sh"
        "${PROJECT_SOURCE_DIR}/packaging/linux/uninstall.sh"
    DESTINATION .
    COMPONENT archive)
install (
    FILES
        "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
        "${PROJECT_SOURCE_DIR}/LICENSE"
        "${PROJECT_SOURCE_DIR}/packaging/linux/README.txt"
    DESTINATION .
    COMPONENT archive)
