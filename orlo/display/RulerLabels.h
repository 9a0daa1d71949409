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
    juce::Rectangle<int> area; /**< In the ruler; the text is vertically centred in it. */
};

/** The frequencies in hertz that a ruler offers for a range: both ends and every 1, 2 and 5 of a decade
    between them, ascending. Empty for an empty range. */
[[nodiscard]] std::vector<float> buildRulerTicks (float minHz, float maxHz);

/** Whole hertz below 995 Hz, kilohertz from there on, with a decimal if it is not 0. */
[[nodiscard]] juce::String formatRulerFrequency (float hz);

/** The labels that a ruler of the given size shows, ascending.

    Both ends of the range are always labelled and have clear space around them: two font heights at the
    top, four at the bottom. Labels further in are never thinned out, so that the same frequencies are
    shown while the range or the window changes; on a very short ruler they may touch.
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
