// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/Source.h"
#include "orlo/stills/StillPicture.h"

namespace mk::orlo
{

/** Everything but the time that decides what an explored picture looks like. */
struct ExploreSettings
{
    HopSettings hop;              /**< Its sample rate is not used: the sound has its own. */
    float minFreqFraction = 0.0f; /**< Of half the sample rate, as maxFreqFraction. */
    float maxFreqFraction = 1.0f;
    int scaleType = 0; /**< A FrequencyScale::Type. */
    PointsKept pointsKept = PointsKept::all;
    Source source = Source::mean; /**< Of sound with two channels. */
    StillColours colours;
};

/** Whether both need the same analysis. */
[[nodiscard]] bool needTheSameLevels (const ExploreSettings& left, const ExploreSettings& right) noexcept;

/** Whether levels become the same colours with both. Maps are the same if they are the same object. */
[[nodiscard]] bool haveTheSameColours (const ExploreSettings& left, const ExploreSettings& right) noexcept;

} // namespace mk::orlo
