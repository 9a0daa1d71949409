# A second build of the same sources is minutes shorter with ccache; without it nothing changes.
find_program (ORLO_CCACHE ccache)

if (ORLO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER AND UNIX)
    # Paths below the project's folder are cached as relative paths, so that clones, worktrees and presets share the
    # cache. Precompiled headers are cached by content only, whatever macros were defined and whatever the time. The
    # launcher is a script, since JUCE's helper program is configured with it, too, and accepts only a single word.
    set (launcher "${CMAKE_BINARY_DIR}/ccache-launcher")
    file (CONFIGURE OUTPUT "${launcher}" @ONLY CONTENT [[#!/bin/sh
CCACHE_BASEDIR='@PROJECT_SOURCE_DIR@' CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros \
    exec "@ORLO_CCACHE@" "$@"
]])
    file (CHMOD "${launcher}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
    set (CMAKE_C_COMPILER_LAUNCHER "${launcher}")
    set (CMAKE_CXX_COMPILER_LAUNCHER "${launcher}")
endif()
