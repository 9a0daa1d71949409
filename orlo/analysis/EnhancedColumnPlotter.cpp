// SPDX-License-Identifier: AGPL-3.0-or-later
#include "EnhancedColumnPlotter.h"

#include "FrequencyScale.h"

#include <bit>
#include <cstdint>

namespace mk::orlo
{
namespace
{

/** The nearest integer, of two equally near the even one, like std::lrint, but vectorised. Without meaning for a NaN or
    beyond plus or minus four million. */
[[nodiscard]] inline int roundToNearest (float value) noexcept
{
    // From 2^23 on floats are integers, so the addition rounds, and leaves the result in the lowest bits.
    constexpr auto offset = 12582912.0f;
    return int (std::bit_cast<std::uint32_t> (value + offset) - std::bit_cast<std::uint32_t> (offset));
}

/** What decides which bins of a frame are plotted, and where. */
struct PointLimits
{
    explicit PointLimits (const ColumnSettings& settings) noexcept
        : half (float (int (settings.windowLength / 2))), // in whole samples, as the ramp window is centred
          hop (float (settings.hop)),
          binWidth (settings.getBinWidth()),
          minHz (settings.minHz),
          maxHz (settings.maxHz)
    {
    }

    const float half, hop, binWidth, minHz, maxHz;
};

/** Writes the frequency and the column of each bin but DC, and whether it is plotted. */
void placeBins (const Frame& frame,
                const PointLimits limits,
                float* __restrict frequencies,
                int* __restrict columns,
                int* __restrict isPlotted) noexcept
{
    const auto* const magnitudes = frame.magnitudes.data();
    const auto* const timeShifts = frame.timeShifts.data();
    const auto* const freqShifts = frame.freqShifts.data();
    const auto numBins = int (frame.size());

    // All comparisons are written so that a NaN fails them.
    for (int k = 1; k < numBins; ++k)
    {
        const auto hz = freqShifts[k] + limits.binWidth * float (k);
        const auto isAudible = int (magnitudes[k] > silenceMagnitude);
        const auto isInWindow = int (std::abs (timeShifts[k]) <= limits.half);
        const auto isNearItsBin = int (std::abs (freqShifts[k]) < limits.binWidth);
        const auto isInRange = int (hz > limits.minHz) & int (hz < limits.maxHz);
        frequencies[k] = hz;
        columns[k] = roundToNearest ((timeShifts[k] + limits.half) / limits.hop);
        isPlotted[k] = isAudible & isInWindow & isNearItsBin & isInRange;
    }
}

/** Turns positions into rows, of which row 0 is on top. */
void positionsToRows (const float* __restrict positions, int* __restrict rows, size_t count, int numRows) noexcept
{
    const auto lastRow = float (numRows - 1);

    for (size_t i = 0; i < count; ++i)
        rows[i] = roundToNearest ((1.0f - positions[i]) * lastRow);
}
} // namespace

void EnhancedColumnPlotter::plot (const Frame& frame,
                                  const ColumnSettings& settings,
                                  const FrequencyScale& scale,
                                  std::vector<Column>& columns)
{
    if (settings.numRows < 1 || columns.empty())
        return;

    if (points.level.size() < frame.size())
        points.resize (frame.size());

    placeBins (frame, PointLimits (settings), points.hz.data(), points.column.data(), points.isPlotted.data());
    const auto count = selectPoints (frame, int (columns.size()));

    scale.getForwardMap().convert (points.hz.data(), points.position.data(), count);
    positionsToRows (points.position.data(), points.row.data(), count, settings.numRows);
    magnitudesToLevels (points.level.data(), count, settings.floorDb, settings.ceilingDb);

    // Levels in the column are at least 0, so a level of 0 or less, or a NaN, changes nothing.
    for (size_t i = 0; i < count; ++i)
    {
        auto& pixel = columns[size_t (points.column[i])][size_t (points.row[i])];
        pixel = points.level[i] > pixel ? points.level[i] : pixel;
    }
}

size_t EnhancedColumnPlotter::selectPoints (const Frame& frame, int numColumns) noexcept
{
    // The arrays are compacted in place. In noise a branch would be mispredicted often, so every bin is stored and
    // only the count depends on whether it is plotted.
    const auto* const magnitudes = frame.magnitudes.data();
    const auto* const isPlotted = points.isPlotted.data();
    auto* const frequencies = points.hz.data();
    auto* const columns = points.column.data();
    auto* const levels = points.level.data();
    size_t count = 0;

    for (size_t k = 1; k < frame.size(); ++k)
    {
        const auto column = columns[k];
        frequencies[count] = frequencies[k];
        levels[count] = magnitudes[k];
        columns[count] = column;
        count += size_t (isPlotted[k] & int (column < numColumns));
    }

    return count;
}

} // namespace mk::orlo
