# The target "manual" makes the manual's web pages and its PDF; component "manual" installs them where the window's
# "Manual" rows look for them. Neither is part of the default build, as pandoc and weasyprint are not needed elsewhere.
if (APPLE OR WIN32)
    set (ORLO_MANUAL_FOLDER "${ORLO_DATA_FOLDER}/Morlek/${PROJECT_NAME}/manual")
else()
    set (ORLO_MANUAL_FOLDER "${CMAKE_INSTALL_DATADIR}/doc/orlo/manual")
endif()

set (manual_output "${PROJECT_BINARY_DIR}/manual")
find_package (Python3 COMPONENTS Interpreter)

if (Python3_FOUND)
    add_custom_target (manual
        COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/scripts/build-manual" "${manual_output}"
        COMMENT "The manual: ${manual_output}"
        VERBATIM)
endif()

install (DIRECTORY "${manual_output}/html/" DESTINATION "${ORLO_MANUAL_FOLDER}" COMPONENT manual OPTIONAL)
install (FILES "${manual_output}/orlo-manual.pdf" DESTINATION "${ORLO_MANUAL_FOLDER}" COMPONENT manual OPTIONAL)
