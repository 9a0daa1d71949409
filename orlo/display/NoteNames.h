// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

/** Notes by their MIDI number, 69 being A at the concert pitch, which is in hertz. */
namespace mk::orlo::notes
{

/** How frequencies become names. */
struct Tuning
{
    int octaveOfMiddleC = 3; /**< The number of the octave of note 60. */
    double concertPitch = 440.0;

    bool operator== (const Tuning&) const noexcept = default;
};

/** The note of a frequency in hertz, with its fraction. Frequencies below 1e-6 Hz all give the same note. */
[[nodiscard]] double noteForFrequency (double hz, double concertPitch) noexcept;

/** The centre frequency of the note, in hertz. */
[[nodiscard]] double frequencyForNote (int note, double concertPitch) noexcept;

[[nodiscard]] bool isBlackKey (int note) noexcept;

/** 0 for C up to 11 for B, for any note that a frequency can have. */
[[nodiscard]] int getPitchClass (int note) noexcept;

/** The number that a host's piano roll gives the octave of middle C (note 60): 3 or 4. */
[[nodiscard]] int getOctaveOfMiddleC (juce::PluginHostType::HostType host) noexcept;

/** The same for the host that runs this process. */
[[nodiscard]] int getOctaveOfMiddleC();

/** The note's name, such as "C#3"; empty for a number outside 0 .. 127. */
[[nodiscard]] juce::String getNoteName (int note, int octaveOfMiddleC);

} // namespace mk::orlo::notes
