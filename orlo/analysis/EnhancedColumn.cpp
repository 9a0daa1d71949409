// SPDX-License-Identifier: AGPL-3.0-or-later
#include "EnhancedColumn.h"

#include "FrequencyScale.h"

namespace mk::orlo
{
namespace
{
// -140 dB, where the level scale ends.
constexpr float smallestPlottedMagnitude = 1.0e-7f;
} // namespace

void plotReassignedPoints (const Frame& frame,
                           const ColumnSettings& settings,
                           const FrequencyScale& scale,
                           std::vector<Column>& columns) noexcept
{
    if (settings.numRows < 1)
        return;

    const auto positionOf = scale.getForwardMap();
    const auto half = float (settings.windowLength / 2);
    const auto hop = float (settings.hop);
    const auto binWidth = settings.getBinWidth();
    const auto lastRow = float (settings.numRows - 1);
    const auto numColumns = long (columns.size());

    // All comparisons are written so that a NaN fails them. The logarithm comes last, since most of what
    // is left out can be told without it. DC has no frequency to move.
    for (size_t k = 1; k < frame.size(); ++k)
    {
        const auto& bin = frame[k];

        if (! (bin.magnitude > smallestPlottedMagnitude))
            continue;

        if (! (bin.timeShift >= -half && bin.timeShift <= half && bin.freqShift > -binWidth
               && bin.freqShift < binWidth))
            continue;

        const auto column = std::lrint ((bin.timeShift + half) / hop);
        const auto hz = bin.freqShift + binWidth * float (k);

        if (column >= numColumns || ! (hz > settings.minHz && hz < settings.maxHz))
            continue;

        const auto level = settings.levelForDecibels (decibelsForMagnitude (bin.magnitude));

        if (! (level > 0.0f))
            continue;

        const auto row = std::lrint ((1.0f - positionOf (hz)) * lastRow);
        auto& pixel = columns[size_t (column)][size_t (row)];
        pixel = juce::jmax (pixel, level);
    }
}

} // namespace mk::orlo
