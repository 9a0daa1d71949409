# A second build of the same sources is minutes shorter with ccache; without it nothing changes.
find_program (ORLO_CCACHE ccache)

if (ORLO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER AND UNIX)
    # Paths below the project's own folder are cached as relative ones, so that clones, worktrees and presets share
    # what they have in common. Precompiled headers are cached by their content, whatever macros and times were
    # around. They are hundreds of megabytes, which ccache would read again for every source file, so the sum of the
    # content is written down beside them once. A script, since JUCE's own helper program is configured with the
    # launcher too and takes one word only.
    set (launcher "${CMAKE_BINARY_DIR}/ccache-launcher")
    file (CONFIGURE OUTPUT "${launcher}" @ONLY CONTENT [[#!/bin/sh
export CCACHE_BASEDIR='@PROJECT_SOURCE_DIR@' CCACHE_NOHASHDIR=1 CCACHE_PCH_EXTSUM=1
export CCACHE_SLOPPINESS=pch_defines,time_macros

for argument; do
    case $argument in
        *.gch)
            rm -f "$argument.sum"
            "@ORLO_CCACHE@" "$@" || exit
            sha256sum < "$argument" > "$argument.sum"
            exit
            ;;
    esac
done

exec "@ORLO_CCACHE@" "$@"
]])
    file (CHMOD "${launcher}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set (CMAKE_C_COMPILER_LAUNCHER "${launcher}")
    set (CMAKE_CXX_COMPILER_LAUNCHER "${launcher}")
endif()
