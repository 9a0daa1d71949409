// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/HopPlan.h"
#include "orlo/analysis/PointsKept.h"

namespace mk::orlo
{

/** The settings that columns are made with. */
struct RenderSettings
{
    HopSettings hop;
    float floorDb = -100.0f;
    float ceilingDb = 0.0f;
    float minFreqFraction = 0.0f; /**< Of half the sample rate, as maxFreqFraction. */
    float maxFreqFraction = 1.0f;
    int scaleType = 0; /**< A FrequencyScale::Type. */
    int height = 1024; /**< Pixels. */
    PointsKept pointsKept = PointsKept::all;
};

} // namespace mk::orlo
