// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NoteNames.h"

#include <array>
#include <cmath>

namespace mk::orlo::notes
{
namespace
{
constexpr int concertA = 69;
constexpr int notesPerOctave = 12;

constexpr std::array<const char*, notesPerOctave> names { "C",  "C#", "D",  "D#", "E",  "F",
                                                          "F#", "G",  "G#", "A",  "A#", "B" };
} // namespace

double noteForFrequency (double hz, double concertPitch) noexcept
{
    // The logarithm of zero is minus infinity and that of a negative number is NaN.
    const auto ratio = hz < 1.0e-6 ? 2.2727273e-9 : hz / concertPitch;
    return double (concertA) + double (notesPerOctave) * std::log2 (ratio);
}

double frequencyForNote (int note, double concertPitch) noexcept
{
    return concertPitch * std::exp2 (double (note - concertA) / double (notesPerOctave));
}

int getPitchClass (int note) noexcept { return juce::negativeAwareModulo (note, notesPerOctave); }

bool isBlackKey (int note) noexcept
{
    switch (getPitchClass (note))
    {
        case 1:
        case 3:
        case 6:
        case 8:
        case 10: return true;
        default: return false;
    }
}

int getOctaveOfMiddleC (juce::PluginHostType::HostType host) noexcept
{
    using Host = juce::PluginHostType;

    switch (host)
    {
        case Host::FruityLoops:
        case Host::Reaper:
        case Host::Tracktion3:
        case Host::TracktionGeneric:
        case Host::TracktionWaveform:
        case Host::ViennaEnsemblePro: return 4;
        default: return 3;
    }
}

int getOctaveOfMiddleC() { return getOctaveOfMiddleC (juce::PluginHostType().type); }

juce::String getNoteName (int note, int octaveOfMiddleC)
{
    if (note < 0 || note > 127)
        return {};

    return names[size_t (getPitchClass (note))] + juce::String (note / notesPerOctave + octaveOfMiddleC - 5);
}

} // namespace mk::orlo::notes
