// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/FrequencyScale.h"

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace mk::orlo
{

/** One text of the frequency ruler. */
struct RulerLabel
{
    float frequency;           /**< Hertz. */
    juce::String text;         /**< Such as "50" or "1.5k". */
    juce::Rectangle<int> area; /**< In the ruler; the text stands in the middle of its height. */
};

/** The frequencies in hertz that a ruler offers for a range: both ends and every 1, 2 and 5 of a decade
    between them, ascending. Empty for an empty range. */
[[nodiscard]] std::vector<float> buildRulerTicks (float minHz, float maxHz);

/** Whole hertz below 995 Hz, kilohertz from there on, with a decimal where there is one to show. */
[[nodiscard]] juce::String formatRulerFrequency (float hz);

/** The labels that a ruler of that size shows, ascending.

    Both ends of the range are always among them and keep clear space around them: two font heights at the
    top, four at the bottom. Neighbours further in are not thinned out, so that the same frequencies stay
    where they are while a range or a window changes; on a very short ruler they may touch.
    [owner thread of the scale]

    @param ticks       ascending, as buildRulerTicks() gives them
    @param fontHeight  in pixels, more than 0
*/
[[nodiscard]] std::vector<RulerLabel> placeRulerLabels (const std::vector<float>& ticks,
                                                        const FrequencyScale& scale,
                                                        int width,
                                                        int height,
                                                        float fontHeight);

} // namespace mk::orlo
