// SPDX-License-Identifier: AGPL-3.0-or-later
#include "EnhancedColumnPlotter.h"

#include "FrequencyScale.h"

namespace mk::orlo
{
namespace
{
// -140 dB, where the level scale ends.
constexpr float smallestPlottedMagnitude = 1.0e-7f;
} // namespace

void EnhancedColumnPlotter::plot (const Frame& frame,
                                  const ColumnSettings& settings,
                                  const FrequencyScale& scale,
                                  std::vector<Column>& columns)
{
    if (settings.numRows < 1)
        return;

    selectPoints (frame, settings);
    placePoints (settings, scale, columns);
    computeLevels (settings);

    // Levels in the column are at least 0, so a level of 0 or less, or a NaN, changes nothing.
    for (size_t i = 0; i < points.count; ++i)
        *points.pixel[i] = points.level[i] > *points.pixel[i] ? points.level[i] : *points.pixel[i];
}

void EnhancedColumnPlotter::selectPoints (const Frame& frame, const ColumnSettings& settings)
{
    const auto wholeHalf = settings.windowLength / 2; // in whole samples, as the ramp window is centred
    const auto half = float (wholeHalf);
    const auto binWidth = settings.getBinWidth();

    if (points.magnitude.size() < frame.size())
    {
        points.magnitude.resize (frame.size());
        points.delay.resize (frame.size());
        points.hz.resize (frame.size());
        points.level.resize (frame.size());
        points.pixel.resize (frame.size());
    }

    // Copies, because the compiler must assume that the floats written below alias the settings.
    const auto minHz = settings.minHz;
    const auto maxHz = settings.maxHz;
    auto* const magnitudes = points.magnitude.data();
    auto* const delays = points.delay.data();
    auto* const frequencies = points.hz.data();
    size_t count = 0;

    // DC is not reassigned. All comparisons are written so that a NaN fails them. In noise a branch on them
    // would be mispredicted often, so every bin is stored and only the count depends on the result.
    for (size_t k = 1; k < frame.size(); ++k)
    {
        const auto& bin = frame[k];
        const auto hz = bin.freqShift + binWidth * float (int (k));
        magnitudes[count] = bin.magnitude;
        delays[count] = bin.timeShift + half;
        frequencies[count] = hz;

        const auto isAudible = int (bin.magnitude > smallestPlottedMagnitude);
        const auto isInWindow = int (std::abs (bin.timeShift) <= half);
        const auto isNearItsBin = int (std::abs (bin.freqShift) < binWidth);
        const auto isInRange = int (hz > minHz) & int (hz < maxHz);
        count += size_t (isAudible & isInWindow & isNearItsBin & isInRange);
    }

    points.count = count;
}

void EnhancedColumnPlotter::placePoints (const ColumnSettings& settings,
                                         const FrequencyScale& scale,
                                         std::vector<Column>& columns)
{
    const auto positionOf = scale.getForwardMap();
    const auto hop = float (settings.hop);
    const auto lastRow = float (settings.numRows - 1);
    const auto numColumns = long (columns.size());
    size_t count = 0;

    for (size_t i = 0; i < points.count; ++i)
    {
        const auto column = std::lrint (points.delay[i] / hop);

        if (column >= numColumns)
            continue;

        const auto row = std::lrint ((1.0f - positionOf (points.hz[i])) * lastRow);
        points.pixel[count] = &columns[size_t (column)][size_t (row)];
        points.magnitude[count] = points.magnitude[i];
        ++count;
    }

    points.count = count;
}

void EnhancedColumnPlotter::computeLevels (const ColumnSettings& settings)
{
    for (size_t i = 0; i < points.count; ++i)
        points.level[i] = std::log10 (points.magnitude[i]);

    for (size_t i = 0; i < points.count; ++i)
        points.level[i] = settings.levelForDecibels (juce::jmax (silenceDb, 20.0f * points.level[i]));
}

} // namespace mk::orlo
