# orlo_precompile (TARGET HEADERS...): reading JUCE's headers takes most of the time of a small source file,
# so they are read once for each target. With clang every file still reads for itself, which keeps the files'
# own includes complete.
function (orlo_precompile target)
    if (NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        return()
    endif()

    target_precompile_headers (${target} PRIVATE ${ARGN})

    # For ccache, which cannot look into a precompiled header.
    target_compile_options (${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-fpch-preprocess>)
endfunction()
