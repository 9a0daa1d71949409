// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RulerLabels.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int leftMargin = 1;

} // namespace

std::vector<float> buildRulerTicks (float minHz, float maxHz)
{
    // Negated, so that a NaN gives an empty ruler.
    if (! (minHz < maxHz))
        return {};

    std::vector<float> ticks { minHz, maxHz };
    const auto firstDecade = int (std::floor (std::log10 (juce::jmax (minHz, 1.0f))));
    const auto lastDecade = int (std::ceil (std::log10 (maxHz)));

    for (int decade = firstDecade; decade <= lastDecade; ++decade)
        for (const auto digit : { 1.0, 2.0, 5.0 })
            if (const auto hz = float (digit * std::pow (10.0, decade)); hz > minHz && hz < maxHz)
                ticks.push_back (hz);

    std::sort (ticks.begin(), ticks.end());
    ticks.erase (std::unique (ticks.begin(), ticks.end()), ticks.end());
    return ticks;
}

juce::String formatRulerFrequency (float hz)
{
    if (hz < 995.0f)
        return juce::String (juce::roundToInt (hz));

    // In double precision, since 22.05 is slightly smaller in single precision and would be rounded down.
    const auto kilohertz = double (hz) / 1000.0;
    const auto nearest = std::round (kilohertz);

    return (std::abs (kilohertz - nearest) < 0.05 ? juce::String (int (nearest)) : juce::String (kilohertz, 1)) + "k";
}

std::vector<RulerLabel> placeRulerLabels (const std::vector<float>& ticks,
                                          const FrequencyScale& scale,
                                          int width,
                                          int height,
                                          float fontHeight)
{
    std::vector<RulerLabel> labels;
    const juce::Rectangle<int> ruler { width, height };
    const auto lowestTop = int (float (height) - 2.0f * fontHeight);

    for (size_t i = 0; i < ticks.size(); ++i)
    {
        const auto top = int ((1.0f - scale.positionForFrequency (ticks[i])) * float (height) - fontHeight);
        const auto isEnd = i == 0 || i + 1 == ticks.size();

        // The texts at the two ends are moved inwards, so other labels must keep clear of them.
        if (! isEnd && ! (float (top) > 2.0f * fontHeight && float (top) < float (height) - 4.0f * fontHeight))
            continue;

        const juce::Rectangle<int> area {
            leftMargin, juce::jmax (0, juce::jmin (top, lowestTop)), width - leftMargin, int (2.0f * fontHeight)
        };
        labels.push_back ({ ticks[i], formatRulerFrequency (ticks[i]), area.getIntersection (ruler) });
    }

    return labels;
}

} // namespace mk::orlo
