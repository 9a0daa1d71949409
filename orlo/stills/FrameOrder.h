// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PointPlotter.h"
#include "StillPlan.h"

namespace mk::orlo
{

/** Some of a still picture's frames, in the order in which they are made: all of them, those of every eighth column, or
    the others. */
class FrameOrder
{
public:
    enum class Which
    {
        all,
        everyEighth, /**< The columns whose number is a multiple of coarseness. */
        others
    };

    static constexpr int coarseness = 8;

    struct Place
    {
        std::int64_t column; /**< As StillPlan counts them, those beside the picture included. */
        int part;            /**< 0 .. framesPerColumn - 1 */
    };

    FrameOrder (const StillPlan& plan, Which which) noexcept;

    [[nodiscard]] std::int64_t getNumFrames() const noexcept { return numColumns * framesPerColumn; }

    /** @param index  0 .. getNumFrames() - 1; the columns never fall */
    [[nodiscard]] Place getPlace (std::int64_t index) const noexcept
    {
        return { getColumn (index / framesPerColumn), int (index % framesPerColumn) };
    }

    /** The columns that only the frames from first up to, not including, end can raise, of those of this order. */
    [[nodiscard]] OwnColumns getOwnColumns (std::int64_t first, std::int64_t end) const noexcept;

private:
    [[nodiscard]] std::int64_t getColumn (std::int64_t index) const noexcept;

    const Which which;
    const std::int64_t margin;
    const int framesPerColumn;
    std::int64_t numColumns = 0;
    std::int64_t numBefore = 0; // of all frame columns, before the first whose number is a multiple of coarseness
};

} // namespace mk::orlo
