// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnalysisConfig.h"
#include "PointsKept.h"

namespace mk::orlo
{

/** Everything that decides how samples become frames, except for the sample rate. */
struct AnalysisSettings
{
    AnalysisConfig window;

    int hop = 0;                     /**< Samples from one frame to the next; below 1 there is no analysis. */
    bool enhanced = false;           /**< Whether frames are reassigned. */
    float magnitudeThreshold = 0.0f; /**< Linear. Bins not above it read 0. */

    PointsKept pointsKept = PointsKept::all; /**< Of reassigned frames. The bins of the other points read 0. */

    bool operator== (const AnalysisSettings&) const noexcept = default;
};

} // namespace mk::orlo
