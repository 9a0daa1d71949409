# Most of the time of compiling a small file goes into JUCE's headers, so they are precompiled once for many targets.
# Heaps of sources read them rarely anyway. With clang each file reads its own headers, which shows where an include is
# missing.
if (CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set (ORLO_PRECOMPILE ON)
else()
    set (ORLO_PRECOMPILE OFF)
endif()

# orlo_add_precompiled (NAME LINKS HEADERS...): precompiles the headers with the options of the linked targets. The
# compiler accepts the result only in targets with the same options: macros that the headers use must have the same
# values, and libraries and programs need one each, since position-independent code is compiled differently.
function (orlo_add_precompiled name links)
    if (NOT ORLO_PRECOMPILE OR ORLO_HEAPS)
        return()
    endif()

    set (source "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    file (CONFIGURE OUTPUT "${source}" CONTENT "// Only its precompiled header is wanted.\n" @ONLY)
    add_library (${name} OBJECT EXCLUDE_FROM_ALL "${source}")
    target_include_directories (${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries (${name} PRIVATE ${links} orlo_warnings)
    target_precompile_headers (${name} PRIVATE ${ARGN})

    # ccache needs this to support precompiled headers.
    target_compile_options (${name} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()

# orlo_precompile (TARGET [NAME]): lets a target use the headers that orlo_add_precompiled (NAME ...) precompiled. The
# default is orlo_pch, which is for libraries.
function (orlo_precompile target)
    if (NOT ORLO_PRECOMPILE OR ORLO_HEAPS)
        return()
    endif()

    set (name orlo_pch)

    if (ARGC GREATER 1 AND TARGET "${ARGV1}")
        set (name "${ARGV1}")
    endif()

    target_precompile_headers (${target} REUSE_FROM ${name})
    target_compile_options (${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()
