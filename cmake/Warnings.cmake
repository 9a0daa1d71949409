# orlo_warnings: for our own sources only. JUCE's headers come in as system headers.
add_library (orlo_warnings INTERFACE)

if (MSVC)
    target_compile_options (orlo_warnings INTERFACE /W4 /WX)
else()
    target_compile_options (orlo_warnings INTERFACE
        -Wall -Wextra -Wpedantic -Werror -Wconversion -Wsign-conversion -Wnon-virtual-dtor
        -Woverloaded-virtual -Wcast-align -Wunused -Wnull-dereference -Wdouble-promotion -Wformat=2)

    # In a heap each file sees the names of the files before it, which its own may shadow.
    target_compile_options (orlo_warnings INTERFACE $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ORLO_IN_HEAPS>>>:-Wshadow>)

    # Without these two options square roots are not vectorised. The code reads neither errno nor floating-point
    # traps; NaN and infinity keep their IEEE meaning.
    target_compile_options (orlo_warnings INTERFACE -fno-math-errno -fno-trapping-math)

    if (CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # False alarms inside the standard library's own inlined code in optimised builds.
        target_compile_options (orlo_warnings INTERFACE -Wno-null-dereference)

        # More false alarms, in code that a sanitizer has instrumented.
        if (ORLO_SANITIZE)
            target_compile_options (orlo_warnings INTERFACE -Wno-maybe-uninitialized)
        endif()
    endif()
endif()
