// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ClassicColumnMapper.h"

#include "FrequencyScale.h"

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

    Row row;
    row.lowBin = int (std::floor (low));
    row.nextBin = juce::jmin (geometry.maxBin, row.lowBin + 1);

    // Between DC and the first bin there is no interpolation: DC would leak into the lowest rows.
    row.nextWeight =
        row.lowBin == 0 ? 1.0f : (1.0f - std::cos ((low - float (row.lowBin)) * juce::MathConstants<float>::pi)) * 0.5f;

    row.firstPeakBin = juce::jlimit (0, geometry.maxBin, int (std::ceil (low)));
    row.endPeakBin = juce::jlimit (0, geometry.maxBin, int (std::floor (high)));
    return row;
}

void ClassicColumnMapper::updateRows (const Geometry& wanted, const FrequencyScale& scale)
{
    if (wanted == geometry)
        return;

    geometry = wanted;
    rows.resize (size_t (geometry.numRows));

    for (int y = 0; y < geometry.numRows; ++y)
        rows[size_t (y)] = makeRow (y, geometry, scale);
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

    const auto magnitudeOf = [&] (int bin) { return bin >= 0 && bin < numBins ? frame[size_t (bin)].magnitude : 0.0f; };

    for (size_t y = 0; y < rows.size(); ++y)
    {
        const auto& row = rows[y];
        auto loudest = row.lowBin == 0 ? magnitudeOf (row.nextBin)
                                       : magnitudeOf (row.nextBin) * row.nextWeight
                                             + magnitudeOf (row.lowBin) * (1.0f - row.nextWeight);

        for (int bin = row.firstPeakBin; bin < row.endPeakBin; ++bin)
            loudest = juce::jmax (loudest, frame[size_t (bin)].magnitude);

        // A NaN counts as silence.
        column[y] = loudest > 0.0f ? loudest : 0.0f;
    }
}

void ClassicColumnMapper::magnitudesToLevels (const ColumnSettings& settings, Column& column) noexcept
{
    for (auto& value : column)
        value = settings.levelForDecibels (decibelsForMagnitude (value));
}

} // namespace mk::orlo
