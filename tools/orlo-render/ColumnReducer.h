// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/ColumnSettings.h"

#include <cstdint>
#include <functional>

namespace mk::orlo::render
{

/** Merges a known number of columns into fewer by maximum, one after the other, and stores only one of them.

    Column i of n goes into merged column floor (i * width / n). So each merged column gets at least one column,
    and the numbers of columns that any two get differ by at most one. */
class ColumnReducer
{
public:
    /** Called with each merged column, in order, when it is complete. May change it. */
    using Sink = std::function<void (int x, Column& merged)>;

    /** @param numFrames       columns that will be added
        @param framesPerColumn each run of this many always goes into one column; numFrames is a multiple of it
        @param width           merged columns, at most numFrames / framesPerColumn */
    ColumnReducer (std::int64_t numFrames, int framesPerColumn, int width, Sink sink);

    /** Adds the next column. All must have the same height. Allocates only at the first call. */
    void add (const Column& column);

private:
    [[nodiscard]] int getTarget (std::int64_t frame) const noexcept;

    const std::int64_t numColumns;
    const int framesPerColumn, width;
    const Sink sink;
    std::int64_t numAdded = 0;
    bool isNew = true; // nothing has been added to merged yet
    Column merged;
};

} // namespace mk::orlo::render
