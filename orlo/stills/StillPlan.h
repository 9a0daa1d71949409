// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillRequest.h"

namespace mk::orlo
{

/** At which samples the windows of a still picture lie, and which column shows which samples.

    The columns are those of the picture, or if it shows less than a sample in a pixel, the samples. Each is divided
    into the same number of frames, whose windows are centred in their parts, to the nearest sample. So the frames
    depend only on where they lie in their column: a picture of the range one column further on has the same frames.
    In Enhanced a frame's points may lie as far away as its window reaches, so frames beside the picture belong to it,
    in columns to the left of 0 and to the right of the last.
*/
struct StillPlan
{
    double firstSample = 0.0;      /**< Where column 0 starts. */
    double samplesPerColumn = 1.0; /**< At least 1. */
    int numColumns = 0;
    int framesPerColumn = 1;
    int windowLength = 0; /**< Samples, odd. */
    int margin = 0;       /**< Columns beside the picture on each side whose frames can have points in it. */

    /** Half of the window in whole samples: a frame's window starts so many samples before its centre and ends so many
        after it. The window's last sample is always zero. */
    [[nodiscard]] int getHalf() const noexcept { return windowLength / 2; }

    /** All columns that have frames, with those beside the picture. */
    [[nodiscard]] std::int64_t getNumFrameColumns() const noexcept { return numColumns + 2 * std::int64_t (margin); }

    /** The sample that a frame is centred at.
        @param column  -margin .. numColumns + margin - 1
        @param part    0 .. framesPerColumn - 1 */
    [[nodiscard]] std::int64_t getCentre (std::int64_t column, int part) const noexcept;

    /** The middle of a sample, in columns from the left edge of column 0. */
    [[nodiscard]] double getColumnPosition (std::int64_t sample) const noexcept
    {
        return (double (sample) + 0.5 - firstSample) / samplesPerColumn;
    }
};

/** Any thread, no allocation. The request must be valid. */
[[nodiscard]] StillPlan makeStillPlan (const StillRequest& request) noexcept;

/** The column that a pixel 0 .. width - 1 shows. */
[[nodiscard]] int getColumnOfPixel (const StillPlan& plan, const StillRequest& request, int x) noexcept;

} // namespace mk::orlo
