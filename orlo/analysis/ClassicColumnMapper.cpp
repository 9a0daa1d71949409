// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ClassicColumnMapper.h"

#include "FrequencyScale.h"

#include <algorithm>

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
    row.lowBin = juce::jmin (geometry.maxBin, lowBin);
    row.nextBin = juce::jmin (geometry.maxBin, lowBin + 1);
    row.nextWeight = (1.0f - std::cos ((low - float (lowBin)) * juce::MathConstants<float>::pi)) * 0.5f;
    row.lowWeight = lowBin <= geometry.maxBin ? 1.0f - row.nextWeight : 0.0f; // there is nothing beyond the last bin

    // Between DC and the first bin there is no interpolation: DC would leak into the lowest rows.
    if (lowBin == 0)
    {
        row.lowBin = row.nextBin;
        row.lowWeight = row.nextWeight = 0.5f;
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

    for (auto* bins : { &lowBins, &nextBins })
        bins->resize (numRows);

    for (auto* values : { &lowWeights, &nextWeights, &lowMagnitudes, &nextMagnitudes })
        values->resize (numRows);

    std::vector<RangeMaxima::Range> ranges;

    for (int y = 0; y < geometry.numRows; ++y)
    {
        const auto row = makeRow (y, geometry, scale);
        lowBins[size_t (y)] = row.lowBin;
        nextBins[size_t (y)] = row.nextBin;
        lowWeights[size_t (y)] = row.lowWeight;
        nextWeights[size_t (y)] = row.nextWeight;

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

    if (numBins == 0)
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
    const auto* const nextBin = nextBins.data();
    const auto* const lowWeight = lowWeights.data();
    const auto* const nextWeight = nextWeights.data();
    float* __restrict low = lowMagnitudes.data();
    float* __restrict next = nextMagnitudes.data();

    // Loads from scattered places are not vectorised, so they have a loop of their own.
    for (size_t y = 0; y < numRows; ++y)
    {
        low[y] = magnitudes[lowBin[y]];
        next[y] = magnitudes[nextBin[y]];
    }

    // A NaN counts as silence.
    for (size_t y = 0; y < numRows; ++y)
    {
        const auto magnitude = next[y] * nextWeight[y] + low[y] * lowWeight[y];
        column[y] = magnitude > 0.0f ? magnitude : 0.0f;
    }
}

void ClassicColumnMapper::magnitudesToLevels (const ColumnSettings& settings, Column& column) noexcept
{
    orlo::magnitudesToLevels (column.data(), column.size(), settings.floorDb, settings.ceilingDb);
}

} // namespace mk::orlo
