// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/ColumnSettings.h"

#include <cstdint>
#include <functional>

namespace mk::orlo::render
{

/** Merges a known number of columns, one after the other, into fewer by maximum, holding no more than one.

    Column i of n goes into column floor (i * width / n): every one of them is at least one column's, and no
    two get numbers of columns that differ by more than one. */
class ColumnReducer
{
public:
    /** Gets each merged column when its last part has been added, in order, and may change it. */
    using Sink = std::function<void (int x, Column& merged)>;

    /** @param numFrames       columns that will be added
        @param framesPerColumn as many of them in a row always go together; numFrames is a multiple of it
        @param width           merged columns, at most numFrames / framesPerColumn */
    ColumnReducer (std::int64_t numFrames, int framesPerColumn, int width, Sink sink);

    /** Adds the next column. All must be of the same height. No allocation after the first. */
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
