# Installs one component of BUILD_DIR into a fresh folder and looks for the files named by EXPECTED,
# separated by "|".
file (REMOVE_RECURSE "${PREFIX}")

if (NEEDED AND NOT EXISTS "${NEEDED}")
    message (STATUS "Skipped: ${NEEDED} has not been built")
    return()
endif()

execute_process (
    COMMAND "${CMAKE_COMMAND}" --install "${BUILD_DIR}" --component "${COMPONENT}" --prefix "${PREFIX}"
    RESULT_VARIABLE result
    OUTPUT_QUIET)

if (NOT result EQUAL 0)
    message (FATAL_ERROR "The installation failed")
endif()

string (REPLACE "|" ";" EXPECTED "${EXPECTED}")

foreach (path IN LISTS EXPECTED)
    if (NOT EXISTS "${PREFIX}/${path}")
        message (FATAL_ERROR "${path} is not in place")
    endif()
endforeach()

file (REMOVE_RECURSE "${PREFIX}")
