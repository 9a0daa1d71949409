# LLVM's linker is ten times as fast on the test programs as the default one, which is used without it.
if (UNIX AND NOT APPLE)
    include (CheckLinkerFlag)
    check_linker_flag (CXX -fuse-ld=lld ORLO_HAS_LLD)

    if (ORLO_HAS_LLD)
        add_link_options (-fuse-ld=lld)
    endif()
endif()
