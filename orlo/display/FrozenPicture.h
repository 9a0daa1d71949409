// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/HopPlan.h"

#include <cstdint>

namespace mk::orlo
{

/** What a picture that stands still shows of the sound: which samples its columns lie at. */
struct FrozenPicture
{
    double start = 0.0, length = 0.0; /**< In samples; the length is 0 if there is no picture. */

    /** Of Static, the share of the width at which the newest column ends and the oldest begins; 1 in Scroll. */
    double seam = 1.0;

    /** The sample at a share 0 .. 1 of the width. */
    [[nodiscard]] double getSampleAt (double share) const noexcept
    {
        return start + length * (seam >= 1.0 || share < seam ? share + 1.0 - seam : share - seam);
    }
};

/** What is known when the display has come to rest. */
struct FrozenState
{
    HopSettings hop;           /**< That the columns were made with, and the sound's rate. */
    std::int64_t soundEnd = 0; /**< The sample after the newest one. */
    int samplesWaiting = 0;    /**< Too few for another frame. */
    int framesWaiting = 0;     /**< Too few for another column. */
    int pictureWidth = 0;      /**< Columns. */
    int writeColumn = 0;       /**< The next one that would be written, counted from the left edge. */
    bool isScrolling = false;
};

/** How many samples a column of the live picture shows; 0 if there is no analysis. Any thread, no allocation. */
[[nodiscard]] std::int64_t getSamplesPerColumn (const HopSettings& hop) noexcept;

/** Any thread, no allocation. Exact to a column. */
[[nodiscard]] FrozenPicture findFrozenPicture (const FrozenState& state) noexcept;

} // namespace mk::orlo
