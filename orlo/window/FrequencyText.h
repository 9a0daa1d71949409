// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** Converts frequency limits between percentages of the Nyquist frequency and the texts that the user reads and
    types. Any thread. */
namespace mk::orlo::frequencyText
{

/** The text for a percentage: "11025 Hz" for 50 at a sample rate of 44100. Without a sample rate "0 Hz". */
[[nodiscard]] juce::String fromPercent (double percent, double sampleRate);

/** The percentage of a typed frequency, not clamped to 0 .. 100. All characters except digits and points are
    ignored, so "440", "440 Hz" and "f = 440" are the same; a "k" anywhere makes it kilohertz, and then a
    comma counts as a point: "1.5k", "1,5 kHz". 0 without digits or without a sample rate. */
[[nodiscard]] double toPercent (const juce::String& text, double sampleRate);

} // namespace mk::orlo::frequencyText
