// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

namespace mk::orlo::host
{

/** The signal that plays when the user gives no audio: five bars of four seconds. Each bar has a chord, a
    chirp, clicks, a note with vibrato and noise, so that any few seconds show everything that a spectrogram
    is used for. */
namespace demo
{
inline constexpr int numBars = 5;
inline constexpr double barSeconds = 4.0;
inline constexpr double seconds = numBars * barSeconds;

/** The root of a bar's chord in hertz. The chord consists of the root's 2nd to 5th harmonic, with a bass note
    on the 1st, so all partials are multiples of the root and are at least the root apart. */
[[nodiscard]] double getRoot (int bar) noexcept;
} // namespace demo

/** The signal in stereo at a rate in hertz. It stays below full scale and is silent at both ends, so that it
    loops without a click. The same rate always gives the same samples. */
[[nodiscard]] juce::AudioBuffer<float> makeDemoSignal (double sampleRate);

} // namespace mk::orlo::host
