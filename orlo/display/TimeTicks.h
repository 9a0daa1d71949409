// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/HostNote.h"
#include "orlo/explore/TimeView.h"

#include <juce_core/juce_core.h>

#include <vector>

namespace mk::orlo
{

/** A mark on the ruler of time. */
struct TimeTick
{
    double share; /**< 0 at the left edge of the view, 1 at the right. */
    juce::String text;
};

/** Marks at round numbers of seconds before the end of the sound, as "-3.2 s". Any thread.
    @param width    of the view, in pixels
    @param spacing  at least that far apart, in pixels, more than 0 */
[[nodiscard]] std::vector<TimeTick> makeSecondTicks (const TimeView& view, int width, int spacing);

/** Marks at bars, or if there is room at beats and quarters of them: "12", "12.3", "12.3.2". Where the host has told nothing
    there are none. Any thread.
    @param notes  what the host has told, oldest first; a note holds until the next one */
[[nodiscard]] std::vector<TimeTick>
    makeBarTicks (const TimeView& view, const std::vector<HostNote>& notes, int width, int spacing);

/** Seconds with as many decimals as a step needs, and the unit. */
[[nodiscard]] juce::String formatSeconds (double seconds, double step);

} // namespace mk::orlo
