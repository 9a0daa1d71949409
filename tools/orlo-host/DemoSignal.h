// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

namespace mk::orlo::host
{

/** What plays when the user gives no audio: five bars of four seconds, and in each of them a chord, a
    chirp, clicks, a voice with vibrato and noise, so that any stretch of a few seconds shows everything
    that a spectrogram is read for. */
namespace demo
{
inline constexpr int numBars = 5;
inline constexpr double barSeconds = 4.0;
inline constexpr double seconds = numBars * barSeconds;

/** Hertz; the chord of the bar is made of the 2nd, 3rd, 4th and 5th harmonic of it, with a bass on the
    1st. So every partial of the chord lies on a multiple of it, and no two lie closer together. */
[[nodiscard]] double getRoot (int bar) noexcept;
} // namespace demo

/** The signal in stereo at a rate in hertz, below full scale, silent where its ends meet. The same rate
    gives the same samples. */
[[nodiscard]] juce::AudioBuffer<float> makeDemoSignal (double sampleRate);

} // namespace mk::orlo::host
