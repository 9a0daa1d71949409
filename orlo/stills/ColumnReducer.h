// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PixelMap.h"
#include "orlo/analysis/ColumnSettings.h"

#include <functional>

namespace mk::orlo
{

/** Merges the columns of a run of frames into those of pixels by maximum, one after the other, and stores only one of
    them. One thread at a time. */
class ColumnReducer
{
public:
    /** What the run has of one pixel. */
    struct Part
    {
        int pixel;
        bool hasFirst, hasLast; /**< Whether the pixel's first and last frame are among the merged ones. */
        Column& merged;         /**< May be changed or moved from. */
    };

    /** Called with each part, in order, when all of it has been added. */
    using Sink = std::function<void (const Part& part)>;

    /** @param map         the picture's
        @param firstFrame  the first frame that will be added, counted from the picture's first
        @param endFrame    the frame after the last one that will be added */
    ColumnReducer (const PixelMap& map, std::int64_t firstFrame, std::int64_t endFrame, Sink sink);

    /** Adds the column of the next frame. All must have the same height. Allocates only at the first call and after
        the sink has moved a column away. */
    void add (const Column& column);

private:
    const PixelMap map;
    const std::int64_t endFrame;
    const Sink sink;
    std::int64_t nextFrame;
    bool isNew = true; // nothing has been added to merged yet
    bool hasFirst;     // merged has the pixel's first frame
    Column merged;
};

/** Merges the right column of a pixel into the left one, by maximum. Of two equal levels the left one stays, and so
    does a NaN on the left, which makes the result that of merging all columns one after the other. */
void mergeColumns (Column& left, const Column& right) noexcept;

} // namespace mk::orlo
