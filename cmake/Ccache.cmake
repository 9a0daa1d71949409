# A second build of the same sources is minutes shorter with ccache; without it nothing changes.
find_program (ORLO_CCACHE ccache)

if (ORLO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set (CMAKE_C_COMPILER_LAUNCHER "${ORLO_CCACHE}")
    set (CMAKE_CXX_COMPILER_LAUNCHER "${ORLO_CCACHE}")
endif()
