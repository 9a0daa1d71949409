// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"
#include "ColumnSettings.h"
#include "FrameBin.h"
#include "RangeMaxima.h"

namespace mk::orlo
{

class FrequencyScale;

/** Maps the bins of a plain transform to a column: each row shows the loudest of the bins that it covers,
    or, if it covers less than a bin, a raised-cosine interpolation between two. One thread at a time. */
class ClassicColumnMapper
{
public:
    /** Writes every row of the column, which must have settings.numRows levels. The scale must have the
        settings' range. Allocates only when rows or range have changed since the last call. */
    void fill (const Frame& frame, const ColumnSettings& settings, const FrequencyScale& scale, Column& column);

    /** The first half of fill(): the loudest magnitude in each row, linear, 0 or more.

        As long as the floor is below the ceiling, the louder of two magnitudes has the higher level, but for rounding.
        Several
        columns can then be merged by maximum as magnitudes, so that only one column needs logarithms. */
    void fillMagnitudes (const Frame& frame,
                         const ColumnSettings& settings,
                         const FrequencyScale& scale,
                         Column& column);

    /** The second half of fill(): turns magnitudes into levels, in place. */
    static void magnitudesToLevels (const ColumnSettings& settings, Column& column) noexcept;

private:
    /** The bins that a row shows. They depend only on the geometry, so they are not computed for every column. */
    struct Row
    {
        int lowBin; // the row's low edge lies between this bin and the next
        float lowWeight, nextWeight;
        int firstPeakBin, endPeakBin; // the bins inside the row: from the first up to, not including, the end
    };

    /** What the rows were computed from. */
    struct Geometry
    {
        int numRows, maxBin, scaleType;
        float binWidth, minHz, maxHz;

        bool operator== (const Geometry&) const noexcept = default;
    };

    void updateRows (const Geometry& wanted, const FrequencyScale& scale);
    [[nodiscard]] static Row makeRow (int y, const Geometry& geometry, const FrequencyScale& scale);

    void interpolate (const float* magnitudes, float* column) noexcept;

    Geometry geometry {};

    std::vector<int> lowBins; // of each row
    AlignedFloats weights;    // of that bin and the next, for each row
    AlignedFloats neighbours; // their magnitudes in the newest frame

    RangeMaxima peaks; // of the bins inside the rows
};

} // namespace mk::orlo
