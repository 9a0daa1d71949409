# Applied to every target, JUCE included: with only part of the code instrumented, sanitizers report false errors.
if (ORLO_SANITIZE)
    add_compile_options (-fsanitize=${ORLO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -O1 -g1)
    add_link_options (-fsanitize=${ORLO_SANITIZE})

    if (ORLO_SANITIZE MATCHES "undefined")
        # JUCE calls through cast function pointers, and its VST3 hosting calls through vtables of other libraries.
        add_compile_options (-fno-sanitize=vptr)
    endif()
endif()
