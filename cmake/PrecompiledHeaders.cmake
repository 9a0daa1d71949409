# Reading JUCE's headers takes most of the time of a small source file, so they are read once for many targets.
# With clang every file still reads for itself, which keeps the files' own includes complete.
if (CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    set (ORLO_PRECOMPILE ON)
else()
    set (ORLO_PRECOMPILE OFF)
endif()

# orlo_add_precompiled (NAME LINKS HEADERS...): reads the headers once, with the options that come with the linked
# targets. The compiler takes the result only in targets that are compiled alike: what the headers look at must be
# defined in the same way, and programs are compiled otherwise than libraries.
function (orlo_add_precompiled name links)
    if (NOT ORLO_PRECOMPILE)
        return()
    endif()

    set (source "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    file (CONFIGURE OUTPUT "${source}" CONTENT "// Only its precompiled header is wanted.\n" @ONLY)
    add_library (${name} OBJECT EXCLUDE_FROM_ALL "${source}")
    target_include_directories (${name} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries (${name} PRIVATE ${links} orlo_warnings)
    target_precompile_headers (${name} PRIVATE ${ARGN})

    # For ccache, which cannot look into a precompiled header.
    target_compile_options (${name} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()

# orlo_precompile (TARGET [NAME]): lets a target use what orlo_add_precompiled has read, by default orlo_pch, which
# is for libraries.
function (orlo_precompile target)
    if (NOT ORLO_PRECOMPILE)
        return()
    endif()

    set (name orlo_pch)

    if (ARGC GREATER 1 AND TARGET "${ARGV1}")
        set (name "${ARGV1}")
    endif()

    target_precompile_headers (${target} REUSE_FROM ${name})
    target_compile_options (${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()
