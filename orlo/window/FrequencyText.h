// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** Limits of frequency, which are percentages of the Nyquist frequency, as the user reads and types them.
    Any thread. */
namespace mk::orlo::frequencyText
{

/** "11025 Hz" for 50 at a sample rate of 44100. Without a sample rate "0 Hz". */
[[nodiscard]] juce::String fromPercent (double percent, double sampleRate);

/** The percentage that a typed frequency is, not kept within 0 to 100. Whatever is neither digit nor point
    is passed by, so "440", "440 Hz" and "f = 440" are the same; a "k" anywhere makes it kilohertz, and then
    a comma is a point: "1.5k", "1,5 kHz". Without digits or without a sample rate 0. */
[[nodiscard]] double toPercent (const juce::String& text, double sampleRate);

} // namespace mk::orlo::frequencyText
