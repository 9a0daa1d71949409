// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/HopPlan.h"

#include <cstdint>

namespace mk::orlo::render
{

/** What a plan is made from. */
struct PlanRequest
{
    HopSettings hop;
    std::int64_t start = 0;  /**< The picture's first sample in the file. */
    std::int64_t length = 0; /**< Samples that the picture shows, at least 1. */
    int width = 0;           /**< Pixels to fit the columns into; 0: no limit. */
};

/** Which samples go into the analysis, and which of its columns go where in the picture.

    Column i of the picture shows the samples from start + i * samplesPerColumn on, as many. For this the
    analysis starts early enough that its first column lacks nothing, its lag is taken out, and it goes on
    behind the last column for as long as that lag lasts. */
struct RenderPlan
{
    HopPlan analysis;
    int windowLength = 0;              /**< Samples. */
    std::int64_t samplesPerColumn = 0; /**< Whole hops. */
    std::int64_t numColumns = 0;       /**< Before they are merged into the picture's width. */
    int width = 0;                     /**< Of the picture, pixels; 0 if it would be wider than an int. */
    std::int64_t feedStart = 0;        /**< Where the analysis starts in the file; may be negative. */
    std::int64_t leadFrames = 0;       /**< Frames that come before the picture's first. */

    /** Frames that belong to the picture. */
    [[nodiscard]] std::int64_t getNumPictureFrames() const noexcept { return numColumns * analysis.framesPerColumn; }
};

/** Any thread, no allocation. A hop below 1, at a sample rate of next to nothing, leaves all else zero. */
[[nodiscard]] RenderPlan makePlan (const PlanRequest& request) noexcept;

} // namespace mk::orlo::render
