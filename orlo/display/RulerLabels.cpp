// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RulerLabels.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int leftMargin = 1;

/** The lower the rank, the longer a label stays when there is no room for all. */
enum Rank
{
    endOfRange,
    ten,
    five,
    two
};

struct Candidate
{
    size_t index; // among the ticks
    int top;
    Rank rank;
};

[[nodiscard]] Rank getRank (float hz) noexcept
{
    const auto decade = std::floor (std::log10 (hz) + 1.0e-4f);
    const auto leadingDigit = juce::roundToInt (hz / std::pow (10.0f, decade));
    return leadingDigit == 1 ? ten : leadingDigit == 5 ? five : two;
}

[[nodiscard]] std::vector<Candidate>
    findCandidates (const std::vector<float>& ticks, const FrequencyScale& scale, int height, float fontHeight)
{
    std::vector<Candidate> candidates;
    const auto lowestTop = int (float (height) - 2.0f * fontHeight);
    const auto keepInside = [lowestTop] (int top) { return juce::jmax (0, juce::jmin (top, lowestTop)); };

    for (size_t i = 0; i < ticks.size(); ++i)
    {
        const auto top = int ((1.0f - scale.positionForFrequency (ticks[i])) * float (height) - fontHeight);
        const auto isEnd = i == 0 || i + 1 == ticks.size();

        // The texts at the two ends are set inwards, so they need more room than the others.
        if (isEnd || (float (top) > 2.0f * fontHeight && float (top) < float (height) - 4.0f * fontHeight))
            candidates.push_back ({ i, keepInside (top), isEnd ? endOfRange : getRank (ticks[i]) });
    }

    return candidates;
}

/** Takes out what would touch a label that matters more; of equals, the higher frequency stays. */
void thinOut (std::vector<Candidate>& candidates, float fontHeight)
{
    std::sort (candidates.begin(),
               candidates.end(),
               [] (const Candidate& a, const Candidate& b)
               { return a.rank != b.rank ? a.rank < b.rank : a.index > b.index; });

    std::vector<Candidate> kept;

    for (const auto& candidate : candidates)
        if (std::none_of (kept.begin(),
                          kept.end(),
                          [&] (const Candidate& other)
                          { return float (std::abs (other.top - candidate.top)) < fontHeight; }))
            kept.push_back (candidate);

    std::sort (kept.begin(), kept.end(), [] (const Candidate& a, const Candidate& b) { return a.index < b.index; });
    candidates = std::move (kept);
}
} // namespace

std::vector<float> buildRulerTicks (float minHz, float maxHz)
{
    // Written so that a NaN makes an empty ruler.
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

    // In double precision, since a single one takes 22.05 for a little less.
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
    auto candidates = findCandidates (ticks, scale, height, fontHeight);
    thinOut (candidates, fontHeight);

    std::vector<RulerLabel> labels;
    const juce::Rectangle<int> ruler { width, height };

    for (const auto& candidate : candidates)
    {
        const auto hz = ticks[candidate.index];
        const juce::Rectangle<int> area { leftMargin, candidate.top, width - leftMargin, int (2.0f * fontHeight) };
        labels.push_back ({ hz, formatRulerFrequency (hz), area.getIntersection (ruler) });
    }

    return labels;
}

} // namespace mk::orlo
