// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ClassicColumnMapper.h"

#include "FrequencyScale.h"

#include <algorithm>
#include <cstring>

namespace mk::orlo
{

ClassicColumnMapper::Row ClassicColumnMapper::makeRow (int y, const Geometry& geometry, const FrequencyScale& scale)
{
    const auto lastRow = float (geometry.numRows - 1);

    const auto binAt = [&] (float edge)
    {
        // In a picture one row high that row shows the whole range.
        const auto down = lastRow > 0.0f ? juce::jlimit (0.0f, lastRow, edge) / lastRow : (edge < 0.0f ? 0.0f : 1.0f);
        return juce::jlimit (geometry.minHz, geometry.maxHz, scale.frequencyForPosition (1.0f - down))
               / geometry.binWidth;
    };

    const auto upper = binAt (float (y) - 0.5f);
    const auto lower = binAt (float (y) + 0.5f);
    const auto low = juce::jmin (upper, lower);
    const auto high = juce::jmax (upper, lower);
    const auto lowBin = int (std::floor (low));

    Row row;
    row.lowBin = juce::jlimit (0, juce::jmax (0, geometry.maxBin - 1), lowBin);
    row.nextWeight = (1.0f - std::cos ((low - float (lowBin)) * juce::MathConstants<float>::pi)) * 0.5f;
    row.lowWeight = 1.0f - row.nextWeight;

    // Between DC and the first bin there is no interpolation: DC would leak into the lowest rows.
    if (lowBin == 0)
    {
        row.lowWeight = 0.0f;
        row.nextWeight = 1.0f;
    }

    // The last bin has no neighbour but itself, and beyond it there is nothing.
    if (lowBin >= geometry.maxBin)
    {
        row.nextWeight = lowBin == geometry.maxBin ? 1.0f : row.nextWeight;
        row.lowWeight = 0.0f;
    }

    row.firstPeakBin = juce::jlimit (0, geometry.maxBin, int (std::ceil (low)));
    row.endPeakBin = juce::jlimit (0, geometry.maxBin, int (std::floor (high)));
    return row;
}

void ClassicColumnMapper::updateRows (const Geometry& wanted, const FrequencyScale& scale)
{
    if (wanted == geometry)
        return;

    geometry = wanted;
    const auto numRows = size_t (geometry.numRows);

    lowBins.resize (numRows);
    weights.resize (2 * numRows);
    neighbours.resize (2 * numRows);

    std::vector<RangeMaxima::Range> ranges;

    for (int y = 0; y < geometry.numRows; ++y)
    {
        const auto row = makeRow (y, geometry, scale);
        lowBins[size_t (y)] = row.lowBin;
        weights[2 * size_t (y)] = row.lowWeight;
        weights[2 * size_t (y) + 1] = row.nextWeight;

        if (row.firstPeakBin < row.endPeakBin)
            ranges.push_back ({ y, row.firstPeakBin, row.endPeakBin });
    }

    peaks.setRanges (ranges, size_t (geometry.maxBin) + 1);
}

void ClassicColumnMapper::fill (const Frame& frame,
                                const ColumnSettings& settings,
                                const FrequencyScale& scale,
                                Column& column)
{
    fillMagnitudes (frame, settings, scale, column);
    magnitudesToLevels (settings, column);
}

void ClassicColumnMapper::fillMagnitudes (const Frame& frame,
                                          const ColumnSettings& settings,
                                          const FrequencyScale& scale,
                                          Column& column)
{
    const auto numBins = int (frame.size());
    const auto maxBin = juce::jmax (0, juce::jmin (numBins - 1, settings.fftSize / 2));

    updateRows (
        { settings.numRows, maxBin, scale.getScaleType(), settings.getBinWidth(), settings.minHz, settings.maxHz },
        scale);

    if (maxBin < 1)
    {
        std::fill (column.begin(), column.end(), 0.0f);
        return;
    }

    const auto* const magnitudes = frame.magnitudes.data();
    interpolate (magnitudes, column.data());
    peaks.raise (magnitudes, column.data());
}

void ClassicColumnMapper::interpolate (const float* magnitudes, float* __restrict column) noexcept
{
    const auto numRows = lowBins.size();
    const auto* const lowBin = lowBins.data();
    const auto* const weight = weights.data();
    float* __restrict pairs = neighbours.data();

    // Loads from scattered places are not vectorised, so they have a loop of their own.
    for (size_t y = 0; y < numRows; ++y)
        std::memcpy (pairs + 2 * y, magnitudes + lowBin[y], 2 * sizeof (float));

    // A NaN counts as silence.
    for (size_t y = 0; y < numRows; ++y)
    {
        const auto magnitude = pairs[2 * y + 1] * weight[2 * y + 1] + pairs[2 * y] * weight[2 * y];
        column[y] = magnitude > 0.0f ? magnitude : 0.0f;
    }
}

void ClassicColumnMapper::magnitudesToLevels (const ColumnSettings& settings, Column& column) noexcept
{
    orlo::magnitudesToLevels (column.data(), column.size(), settings.floorDb, settings.ceilingDb);
}

} // namespace mk::orlo
