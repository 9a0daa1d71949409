// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Credits.h"

namespace mk::orlo
{
namespace
{
[[nodiscard]] juce::String text (const char* utf8) { return juce::String::fromUTF8 (utf8); }

/** The translation with its placeholder replaced by the names; its position depends on the language. */
[[nodiscard]] juce::String withNames (const juce::String& translation, const char* names)
{
    return translation.replace ("%s", text (names));
}
} // namespace

juce::String makeCredits()
{
    juce::String credits;
    credits << text ("JUCE \xc2\xa9 Raw Material Software Limited  \xc2\xb7  VST 3 SDK \xc2\xa9 Steinberg Media "
                     "Technologies GmbH  \xc2\xb7  FFTW \xc2\xa9 Matteo Frigo, MIT\n");
    credits << withNames (juce::translate ("Libraries: %s"),
                          "HarfBuzz, SheenBidi, zlib, libpng, libjpeg-turbo, FLAC, Ogg, Vorbis, FreeType, Fontconfig, "
                          "libcurl, LV2 headers")
            << "\n";
    credits << withNames (juce::translate ("Fonts: %s"), "Barlow (Jeremy Tribby), JetBrains Mono (JetBrains)") << "\n";
    credits << withNames (juce::translate ("Colour maps: %s"),
                          "CMasher (Ellert van der Velden), Turbo (Anton Mikhailov), viridis, plasma, inferno, magma "
                          "(Nathaniel Smith, St\xc3\xa9"
                          "fan van der Walt),\ncividis (Jamie Nu\xc3\xb1"
                          "ez, Christopher Anderton, Ryan Renslow), rocket, mako (Michael Waskom), cubehelix (Dave "
                          "Green)");
    return credits;
}

} // namespace mk::orlo
