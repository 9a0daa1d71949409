// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnReducer.h"

namespace mk::orlo::render
{

ColumnReducer::ColumnReducer (std::int64_t numFrames, int numFramesInEach, int targetWidth, Sink columnSink)
    : numColumns (numFrames / numFramesInEach),
      framesPerColumn (numFramesInEach),
      width (targetWidth),
      sink (std::move (columnSink))
{
}

int ColumnReducer::getTarget (std::int64_t frame) const noexcept
{
    return int (frame / framesPerColumn * width / numColumns);
}

void ColumnReducer::add (const Column& column)
{
    if (isNew)
    {
        merged = column;
    }
    else
    {
        const auto* const source = column.data();
        auto* const target = merged.data();
        const auto size = merged.size();

        for (size_t i = 0; i < size; ++i)
            target[i] = source[i] > target[i] ? source[i] : target[i];
    }

    const auto target = getTarget (numAdded++);
    isNew = getTarget (numAdded) != target;

    if (isNew)
        sink (target, merged);
}

} // namespace mk::orlo::render
