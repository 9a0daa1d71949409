// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/FrequencyScale.h"

#include <vector>

namespace mk::orlo
{

/** A tick of an axis. */
struct AxisTick
{
    float position;    /**< 0 at the axis's start, 1 at its end. */
    juce::String text; /**< Empty for a tick between two labels. */
};

/** Round numbers of an even distance from one end of an axis to the other, ascending or descending as the ends are; none
    if both are the same. A few ticks without text lie between each two.
    @param mostLabels  at least 1 */
[[nodiscard]] std::vector<AxisTick> makeEvenTicks (double start, double end, int mostLabels);

/** Frequencies in hertz on the picture's scale, position 0 being the lowest: on a linear scale and for narrow ranges at
    an even distance, else 1, 2 and 5 of each decade as far as there is room, powers of ten first. From 1000 Hz on with
    a "k" for kilohertz, such as "1.5k". [owner thread of the scale]
    @param labelHeight  the room that a label needs, as a share 0 .. 1 of the axis */
[[nodiscard]] std::vector<AxisTick> makeFrequencyTicks (const FrequencyScale& scale, float labelHeight);

} // namespace mk::orlo
