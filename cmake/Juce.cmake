# orlo_juce: every JUCE module that the project uses, compiled once and linked by the plug-in, the
# tools, the tests and the benchmarks, so that no program ever holds two copies.
add_library (orlo_juce STATIC)

target_link_libraries (orlo_juce
    PRIVATE
        juce::juce_audio_basics
        juce::juce_audio_devices
        juce::juce_audio_formats
        juce::juce_audio_processors
        juce::juce_audio_utils
        juce::juce_core
        juce::juce_data_structures
        juce::juce_dsp
        juce::juce_events
        juce::juce_graphics
        juce::juce_gui_basics
        juce::juce_gui_extra)

target_compile_definitions (orlo_juce
    PUBLIC
        JUCE_DISABLE_JUCE_VERSION_PRINTING=1
        JUCE_JACK=0
        $<$<CONFIG:Debug>:JUCE_LOG_ASSERTIONS=1>
        JUCE_PLUGINHOST_VST3=1
        JUCE_REPORT_APP_USAGE=0
        JUCE_STRICT_REFCOUNTEDPOINTER=1
        JUCE_USE_CURL=0
        JUCE_VST3_CAN_REPLACE_VST2=0
        JUCE_WEB_BROWSER=0
    INTERFACE
        $<TARGET_PROPERTY:orlo_juce,COMPILE_DEFINITIONS>)

target_include_directories (orlo_juce SYSTEM INTERFACE $<TARGET_PROPERTY:orlo_juce,INCLUDE_DIRECTORIES>)
target_compile_options (orlo_juce PRIVATE -w -ffunction-sections -fdata-sections)

# In a plug-in whose host carries a JUCE or an FFTW of its own, every symbol must stay ours.
add_library (orlo_link_options INTERFACE)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options (orlo_link_options INTERFACE LINKER:--exclude-libs,ALL LINKER:--gc-sections LINKER:--as-needed)
endif()

target_link_libraries (orlo_juce INTERFACE orlo_link_options)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    # The source package has its codecs taken out: these are the system's.
    find_package (PkgConfig REQUIRED)
    pkg_check_modules (ORLO_CODECS REQUIRED IMPORTED_TARGET
        zlib libpng libjpeg flac ogg vorbis vorbisenc vorbisfile)
    target_link_libraries (orlo_juce PUBLIC PkgConfig::ORLO_CODECS)
endif()

#---------------------------------------------------------------------------------------------------
# The transform. JUCE's own fallback is ten to twenty times slower than FFTW, so on Linux FFTW is
# required, not preferred. macOS has vDSP; elsewhere FFTW is taken where it is found.
if (NOT APPLE)
    find_library (ORLO_FFTW_STATIC NAMES libfftw3f.a fftw3f)
    find_path (ORLO_FFTW_INCLUDE fftw3.h)

    if (ORLO_FFTW_STATIC AND ORLO_FFTW_INCLUDE)
        target_link_libraries (orlo_juce PUBLIC "${ORLO_FFTW_STATIC}")
        target_compile_definitions (orlo_juce PUBLIC JUCE_DSP_USE_STATIC_FFTW=1)
    elseif (CMAKE_SYSTEM_NAME STREQUAL "Linux")
        message (FATAL_ERROR "libfftw3f.a was not found (Debian: libfftw3-dev). "
                             "Without it JUCE would silently use its slow fallback transform.")
    else()
        message (WARNING "fftw3f was not found: transforms use JUCE's slow fallback")
    endif()
endif()
