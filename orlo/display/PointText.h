// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "NoteNames.h"

namespace mk::orlo
{

/** What a measured point says of itself. */
struct MeasuredPoint
{
    double hertz = 0.0;
    double seconds = 0.0;  /**< Before the end of the sound: 0 or less. */
    float decibels = 0.0f; /**< silenceDb and less: there is nothing. */
};

/** The decimals that seconds need, so that neighbouring pixels can be told apart: 3, or more zoomed in, up to 6. */
[[nodiscard]] int getTimeDecimals (double secondsPerPixel) noexcept;

/** The text for a point, such as "440.02Hz (A3)  -23.4dB  -3.217s"; the frequency is written as by formatReadout(). */
[[nodiscard]] juce::String formatPoint (const MeasuredPoint& point, const notes::Tuning& tuning, int timeDecimals);

/** The text for what the second point is more than the first: time, hertz, cents with the nearest interval, and decibels,
    such as "+0.512s  +220.00Hz  +702cents (perfect fifth +2cents)  -3.2dB". Where one of both has no pitch
    or no level, that part is left out. */
[[nodiscard]] juce::String formatDifference (const MeasuredPoint& first, const MeasuredPoint& second, int timeDecimals);

/** The name of so many semitones up or down, such as "perfect fifth" or "2 octaves + major third". */
[[nodiscard]] juce::String getIntervalName (int semitones);

} // namespace mk::orlo
