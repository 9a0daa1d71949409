// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MagnitudeGrid.h"
#include "orlo/analysis/AlignedFloats.h"
#include "orlo/analysis/ColumnSettings.h"
#include "orlo/analysis/FrequencyScale.h"

#include <cstdint>
#include <limits>
#include <vector>

namespace mk::orlo
{

/** The columns from first to last that only one thread raises at a time; the others are shared. */
struct OwnColumns
{
    std::int64_t first = std::numeric_limits<std::int64_t>::min();
    std::int64_t last = std::numeric_limits<std::int64_t>::max();

    [[nodiscard]] bool contains (std::int64_t column) const noexcept { return column >= first && column <= last; }
};

/** Plots the reassigned points of frames into the columns of a still picture by their own time, not by that of their
    frame, in the rows in which the live picture shows them. One thread at a time. */
class PointPlotter
{
public:
    /** Where the columns of the picture are, as seen from a frame. */
    struct Columns
    {
        std::int64_t ofCentre;  /**< The column that the middle of the frame's centre sample lies in. */
        float positionInColumn; /**< Where in it that lies, 0 .. 1. */
        float perSample;        /**< Columns in a sample, at most 1. */
        int reach;              /**< The columns on each side of it that points may lie in. */
        int numColumns;         /**< Points outside of the columns 0 .. numColumns - 1 are left out. */
    };

    /** Raises the pixels of the frame's points to their magnitudes. Allocates only when frames grow.
        @param settings  of the frame; its levels are not used
        @param scale     with the settings' range */
    void plot (const Frame& frame,
               const ColumnSettings& settings,
               const FrequencyScale& scale,
               const Columns& columns,
               const OwnColumns& own,
               MagnitudeGrid& grid);

private:
    [[nodiscard]] size_t selectPoints (const Frame& frame) noexcept;
    void raisePixels (size_t count, const Columns& columns, const OwnColumns& own, MagnitudeGrid& grid) noexcept;

    // One entry for every bin at first, and then for every point that is plotted. Each step has its own loop over all
    // points, as most of these are vectorised.
    AlignedFloats hz, position, magnitude;
    std::vector<int> column, row, isPlotted;
};

} // namespace mk::orlo
