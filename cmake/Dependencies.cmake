# Every outside dependency is pinned or named here, and nowhere else.

#---------------------------------------------------------------------------------------------------
# JUCE: the tree that ORLO_JUCE_DIR names, of any version in this range; otherwise Debian's source package, by apt.
set (ORLO_JUCE_OLDEST 8.0.6)
set (ORLO_JUCE_BELOW 8.1)
find_program (ORLO_APT_GET apt-get)

if (ORLO_JUCE_DIR)
    set (juce_dir "${ORLO_JUCE_DIR}")
elseif (ORLO_APT_GET)
    execute_process (
        COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/scripts/fetch-juce" "${CMAKE_CURRENT_SOURCE_DIR}/build/juce"
        OUTPUT_VARIABLE juce_dir
        OUTPUT_STRIP_TRAILING_WHITESPACE
        RESULT_VARIABLE fetch_result)

    if (NOT fetch_result EQUAL 0)
        message (FATAL_ERROR "JUCE could not be fetched; give a source tree with -DORLO_JUCE_DIR=...")
    endif()
else()
    message (FATAL_ERROR "Without apt JUCE is not fetched; give a source tree with -DORLO_JUCE_DIR=...")
endif()

add_subdirectory ("${juce_dir}" "${CMAKE_BINARY_DIR}/juce" EXCLUDE_FROM_ALL SYSTEM)

get_directory_property (juce_version DIRECTORY "${juce_dir}" DEFINITION JUCE_VERSION)

if (juce_version VERSION_LESS ORLO_JUCE_OLDEST OR juce_version VERSION_GREATER_EQUAL ORLO_JUCE_BELOW)
    message (FATAL_ERROR
        "JUCE from ${ORLO_JUCE_OLDEST} on and below ${ORLO_JUCE_BELOW} is wanted, ${juce_dir} holds ${juce_version}")
endif()

include (Juce)

#---------------------------------------------------------------------------------------------------
# GoogleTest and Google Benchmark, from the system.
if (ORLO_BUILD_TESTS)
    find_package (GTest REQUIRED)
endif()

if (ORLO_BUILD_BENCHMARKS)
    find_package (benchmark REQUIRED)
endif()
