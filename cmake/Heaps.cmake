# Compiling many sources as one is several times quicker than one by one, since JUCE's headers are read and the code of
# their inline functions is made only once. The release preset compiles each source of the product by itself, which
# shows where an include is missing; the others need not do so again.
option (ORLO_HEAPS "Compile many sources as one; needs Python" OFF)
option (ORLO_TEST_HEAPS "Compile many sources of the tests as one; needs Python" OFF)

if (ORLO_HEAPS OR ORLO_TEST_HEAPS)
    find_package (Python3 REQUIRED COMPONENTS Interpreter)
endif()

# orlo_heap_sources (TARGET): replaces the target's sources by heaps of them, if ORLO_HEAPS is on.
function (orlo_heap_sources target)
    if (NOT ORLO_HEAPS)
        return()
    endif()

    get_target_property (sources ${target} SOURCES)
    set (paths)
    set (others)

    foreach (source IN LISTS sources)
        get_source_file_property (definitions "${source}" COMPILE_DEFINITIONS)
        cmake_path (ABSOLUTE_PATH source OUTPUT_VARIABLE path)

        if (source MATCHES "\\.cpp$" AND NOT definitions)
            cmake_path (RELATIVE_PATH path BASE_DIRECTORY "${PROJECT_SOURCE_DIR}")
            list (APPEND paths "${path}")
        else()
            list (APPEND others "${source}")
        endif()
    endforeach()

    execute_process (
        COMMAND "${Python3_EXECUTABLE}" "${PROJECT_SOURCE_DIR}/scripts/source_heaps.py"
                "${CMAKE_CURRENT_BINARY_DIR}/${target}_heaps" 24 ${paths}
        OUTPUT_VARIABLE heaps
        OUTPUT_STRIP_TRAILING_WHITESPACE
        COMMAND_ERROR_IS_FATAL ANY)
    string (REPLACE "\n" ";" heaps "${heaps}")
    set_target_properties (${target} PROPERTIES SOURCES "${heaps};${others}" ORLO_IN_HEAPS ON)

    target_include_directories (${target} PRIVATE "${PROJECT_SOURCE_DIR}")
endfunction()
