// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnReducer.h"

#include <limits>

namespace mk::orlo
{

void mergeColumns (Column& left, const Column& right) noexcept
{
    const auto* const source = right.data();
    auto* const target = left.data();
    const auto size = left.size();

    for (size_t i = 0; i < size; ++i)
        target[i] = source[i] > target[i] ? source[i] : target[i];
}

ColumnReducer::ColumnReducer (const PixelMap& pixelMap, std::int64_t firstFrame, std::int64_t end, Sink partSink)
    : map (pixelMap),
      endFrame (end),
      sink (std::move (partSink)),
      nextFrame (firstFrame),
      hasFirst (firstFrame == 0 || map.getPixel (firstFrame - 1) != map.getPixel (firstFrame))
{
}

void ColumnReducer::add (const Column& column)
{
    if (isNew && hasFirst)
    {
        merged = column;
    }
    else
    {
        // A pixel's first NaN stays, but one of its later frames is no reason to forget those after it.
        if (isNew)
            merged.assign (column.size(), -std::numeric_limits<float>::infinity());

        mergeColumns (merged, column);
    }

    const auto pixel = map.getPixel (nextFrame++);
    const auto hasLast = map.getPixel (nextFrame) != pixel;
    isNew = hasLast || nextFrame == endFrame;

    if (isNew)
    {
        sink ({ pixel, hasFirst, hasLast, merged });
        hasFirst = true;
    }
}

} // namespace mk::orlo
