# orlo_juce: every JUCE module that the project uses, compiled once. The plug-in, the tools, the tests and the
# benchmarks all link it, so that no program contains two copies.
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

# JUCE runs with our code under AddressSanitizer and ThreadSanitizer, but its undefined behaviour is not ours to judge,
# and looking for it makes compiling half as long again.
if (ORLO_SANITIZE MATCHES "undefined")
    target_compile_options (orlo_juce PRIVATE -fno-sanitize=undefined)
endif()

# The shaping of texts takes a tenth of a second in hours, and a fifth of the time of compiling JUCE if it is optimised
# or instrumented like the rest.
get_target_property (juce_graphics_sources juce::juce_graphics INTERFACE_SOURCES)
list (FILTER juce_graphics_sources INCLUDE REGEX "Harfbuzz\\.cpp$")

if (juce_graphics_sources AND NOT MSVC)
    set_source_files_properties (${juce_graphics_sources} PROPERTIES COMPILE_OPTIONS "-O1;-fno-sanitize=all")
endif()

# A host may contain its own JUCE or FFTW, so the plug-in must not export symbols of its copies.
add_library (orlo_link_options INTERFACE)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options (orlo_link_options INTERFACE LINKER:--gc-sections LINKER:--as-needed)

    # A sanitizer's static runtime must export malloc, to replace it for the whole process.
    if (NOT ORLO_SANITIZE)
        target_link_options (orlo_link_options INTERFACE LINKER:--exclude-libs,ALL)
    endif()
endif()

target_link_libraries (orlo_juce INTERFACE orlo_link_options)

if (CMAKE_SYSTEM_NAME STREQUAL "Linux")
    # The Debian source package contains no codecs, so those of the system are linked.
    find_package (PkgConfig REQUIRED)
    pkg_check_modules (ORLO_CODECS REQUIRED IMPORTED_TARGET
        zlib libpng libjpeg flac ogg vorbis vorbisenc vorbisfile)
    target_link_libraries (orlo_juce PUBLIC PkgConfig::ORLO_CODECS)
endif()

#---------------------------------------------------------------------------------------------------
# The transform. JUCE's own fallback is ten to twenty times slower than FFTW, so on Linux FFTW is
# required. macOS has vDSP; on other systems FFTW is used if it is found.
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
