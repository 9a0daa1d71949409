# LLVM's linker takes a tenth of the time of the system's on the test programs; without it nothing changes.
if (UNIX AND NOT APPLE)
    include (CheckLinkerFlag)
    check_linker_flag (CXX -fuse-ld=lld ORLO_HAS_LLD)

    if (ORLO_HAS_LLD)
        add_link_options (-fuse-ld=lld)
    endif()
endif()
