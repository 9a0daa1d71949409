// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ExploreSettings.h"

namespace mk::orlo
{
namespace
{
[[nodiscard]] StillRequest requestFor (const ExploreSettings& settings)
{
    StillRequest request;
    request.hop = settings.hop;
    request.hop.sampleRate = 1.0;
    request.minFreqFraction = settings.minFreqFraction;
    request.maxFreqFraction = settings.maxFreqFraction;
    request.scaleType = settings.scaleType;
    request.pointsKept = settings.pointsKept;
    return request;
}
} // namespace

bool needTheSameLevels (const ExploreSettings& left, const ExploreSettings& right) noexcept
{
    return left.source == right.source && showsTheSame (requestFor (left), requestFor (right));
}

bool haveTheSameColours (const ExploreSettings& left, const ExploreSettings& right) noexcept
{
    const auto& a = left.colours;
    const auto& b = right.colours;
    return juce::exactlyEqual (a.floorDb, b.floorDb) && juce::exactlyEqual (a.ceilingDb, b.ceilingDb) && a.map == b.map;
}

} // namespace mk::orlo
