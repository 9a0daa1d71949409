// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/HopPlan.h"

#include <cstdint>

namespace mk::orlo
{

/** The input of makePlan(). */
struct PlanRequest
{
    HopSettings hop;
    std::int64_t start = 0;  /**< The picture's first sample in the file. */
    std::int64_t length = 0; /**< Samples that the picture shows, at least 1. */
    int width = 0;           /**< Pixels to fit the columns into; 0: no limit. */
};

/** Which samples go into the analysis, and which of its columns go where in the picture.

    Column i of the picture shows the samplesPerColumn samples from start + i * samplesPerColumn on. For this
    the analysis starts early enough that the first column is complete, its lag is taken out, and it continues
    after the last column for as long as the lag. */
struct RenderPlan
{
    HopPlan analysis;
    int windowLength = 0;              /**< Samples. */
    std::int64_t samplesPerColumn = 0; /**< A multiple of the hop. */
    std::int64_t numColumns = 0;       /**< Before they are merged into the picture's width. */
    int width = 0;                     /**< Of the picture, pixels; 0 if it would be wider than an int. */
    std::int64_t feedStart = 0;        /**< Where the analysis starts in the file; may be negative. */
    std::int64_t leadFrames = 0;       /**< Frames before the picture's first. */

    /** Frames that belong to the picture. */
    [[nodiscard]] std::int64_t getNumPictureFrames() const noexcept { return numColumns * analysis.framesPerColumn; }
};

/** How far the live picture is behind, in samples: the column that a hop completes shows the time of a hop about the
    sample that is so many samples before the end of that hop. 0 if there is no analysis. Any thread, no allocation. */
[[nodiscard]] std::int64_t getLiveDelay (const HopSettings& settings) noexcept;

/** Any thread, no allocation. If the sample rate is so low that the hop is below 1, all else stays zero. */
[[nodiscard]] RenderPlan makePlan (const PlanRequest& request) noexcept;

} // namespace mk::orlo
