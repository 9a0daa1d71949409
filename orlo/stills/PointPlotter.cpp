// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PointPlotter.h"

#include <bit>
#include <cmath>

namespace mk::orlo
{
namespace
{
/** The nearest integer, vectorised. Without meaning for a NaN or beyond plus or minus four million. */
[[nodiscard]] inline int toNearest (float value) noexcept
{
    // From 2^23 on floats are integers, so the addition rounds, and leaves the result in the lowest bits.
    constexpr auto offset = 12582912.0f;
    return int (std::bit_cast<std::uint32_t> (value + offset) - std::bit_cast<std::uint32_t> (offset));
}

/** What decides which points of a frame are shown, and in which column. Columns count from that of the centre. */
struct PointBounds
{
    float half, binWidth, minHz, maxHz;
    float offset, perSample;
    int firstColumn, lastColumn;
};

/** Writes frequency and column of each bin but DC, and whether its point is shown. */
void placePoints (const Frame& frame,
                  const PointBounds bounds,
                  float* __restrict frequencies,
                  int* __restrict columns,
                  int* __restrict shown) noexcept
{
    const auto* const magnitudes = frame.magnitudes.data();
    const auto* const timeShifts = frame.timeShifts.data();
    const auto* const freqShifts = frame.freqShifts.data();
    const auto numBins = int (frame.size());

    // All comparisons are written so that a NaN fails them.
    for (int k = 1; k < numBins; ++k)
    {
        const auto frequency = freqShifts[k] + bounds.binWidth * float (k);
        const auto column = toNearest (bounds.offset + timeShifts[k] * bounds.perSample);
        const auto isAudible = int (magnitudes[k] > silenceMagnitude);
        const auto isInWindow = int (std::abs (timeShifts[k]) <= bounds.half);
        const auto isNearItsBin = int (std::abs (freqShifts[k]) < bounds.binWidth);
        const auto isInRange = int (frequency > bounds.minHz) & int (frequency < bounds.maxHz);
        const auto isInPicture = int (column >= bounds.firstColumn) & int (column <= bounds.lastColumn);
        frequencies[k] = frequency;
        columns[k] = column;
        shown[k] = isAudible & isInWindow & isNearItsBin & isInRange & isInPicture;
    }
}

/** Turns positions into rows, of which row 0 is on top. */
void placeRows (const float* __restrict positions, int* __restrict rows, size_t count, int numRows) noexcept
{
    const auto lastRow = float (numRows - 1);

    for (size_t i = 0; i < count; ++i)
        rows[i] = toNearest ((1.0f - positions[i]) * lastRow);
}
} // namespace

void PointPlotter::plot (const Frame& frame,
                         const ColumnSettings& settings,
                         const FrequencyScale& scale,
                         const Columns& columns,
                         const OwnColumns& own,
                         MagnitudeGrid& grid)
{
    if (magnitude.size() < frame.size())
    {
        for (auto* values : { &hz, &position, &magnitude })
            values->resize (frame.size());

        for (auto* values : { &column, &row, &isPlotted })
            values->resize (frame.size());
    }

    const auto half = settings.windowLength / 2;
    placePoints (frame,
                 { float (half),
                   settings.getBinWidth(),
                   settings.minHz,
                   settings.maxHz,
                   columns.positionInColumn - 0.5f, // so that rounding gives the column that the point lies in
                   columns.perSample,
                   int (-columns.ofCentre),
                   int (columns.numColumns - 1 - columns.ofCentre) },
                 hz.data(),
                 column.data(),
                 isPlotted.data());

    const auto count = selectPoints (frame);
    scale.getForwardMap().convert (hz.data(), position.data(), count);
    placeRows (position.data(), row.data(), count, settings.numRows);

    raisePixels (count, columns, own, grid);
}

void PointPlotter::raisePixels (size_t count,
                                const Columns& columns,
                                const OwnColumns& own,
                                MagnitudeGrid& grid) noexcept
{
    const auto centre = int (columns.ofCentre);

    if (own.contains (columns.ofCentre - columns.reach) && own.contains (columns.ofCentre + columns.reach))
    {
        for (size_t i = 0; i < count; ++i)
            grid.raiseOwn (centre + column[i], row[i], magnitude[i]);

        return;
    }

    for (size_t i = 0; i < count; ++i)
        if (own.contains (centre + column[i]))
            grid.raiseOwn (centre + column[i], row[i], magnitude[i]);
        else
            grid.raiseShared (centre + column[i], row[i], magnitude[i]);
}

size_t PointPlotter::selectPoints (const Frame& frame) noexcept
{
    // Compacted in place and without a branch, which noise would make the processor guess wrong.
    const auto* const magnitudes = frame.magnitudes.data();
    const auto* const plotted = isPlotted.data();
    auto* const frequencies = hz.data();
    auto* const columns = column.data();
    auto* const kept = magnitude.data();
    size_t count = 0;

    for (size_t k = 1; k < frame.size(); ++k)
    {
        const auto x = columns[k];
        frequencies[count] = frequencies[k];
        kept[count] = magnitudes[k];
        columns[count] = x;
        count += size_t (plotted[k]);
    }

    return count;
}

} // namespace mk::orlo
