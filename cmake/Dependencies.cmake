# Every outside dependency is pinned or named here, and nowhere else.

#---------------------------------------------------------------------------------------------------
# JUCE 8.0.6: a tree given by the user, else Debian's source package through apt, else the git tag.
set (ORLO_JUCE_VERSION 8.0.6)
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
    include (FetchContent)
    FetchContent_Declare (JUCE
        GIT_REPOSITORY https://github.com/juce-framework/JUCE.git
        GIT_TAG 8.0.6
        GIT_SHALLOW ON)
    FetchContent_GetProperties (JUCE)

    if (NOT juce_POPULATED)
        FetchContent_Populate (JUCE)
    endif()

    set (juce_dir "${juce_SOURCE_DIR}")
endif()

add_subdirectory ("${juce_dir}" "${CMAKE_BINARY_DIR}/juce" EXCLUDE_FROM_ALL SYSTEM)

get_directory_property (juce_version DIRECTORY "${juce_dir}" DEFINITION JUCE_VERSION)

if (NOT juce_version VERSION_EQUAL ORLO_JUCE_VERSION)
    message (FATAL_ERROR "JUCE ${ORLO_JUCE_VERSION} is wanted, ${juce_dir} holds ${juce_version}")
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
