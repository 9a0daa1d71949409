// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnMapper.h"

#include "FrequencyScale.h"

#include <algorithm>

namespace mk::orlo
{

void ColumnMapper::startAnewIfFormatChanged (const FrameFormat& newFormat)
{
    if (format == newFormat)
        return;

    format = newFormat;

    for (auto& column : history)
        std::fill (column.begin(), column.end(), 0.0f);
}

int ColumnMapper::getHistoryLength (int windowLength, int hop) noexcept
{
    // The number of hops that a window touches, rounded up, and one more because positions are rounded up too.
    return (windowLength + hop - 1) / hop + 1;
}

void ColumnMapper::shiftHistory (const ColumnSettings& settings)
{
    history.resize (size_t (getHistoryLength (settings.windowLength, settings.hop)));

    for (auto& column : history)
        column.resize (size_t (settings.numRows));

    std::rotate (history.begin(), history.begin() + 1, history.end());
    std::fill (history.back().begin(), history.back().end(), 0.0f);
}

const Frame& ColumnMapper::mergeLoudest (const Frame& frame)
{
    loudest.format = frame.format;
    loudest.magnitudes = frame.magnitudes;

    for (const auto& other : frame.others)
        for (size_t k = 0; k < loudest.magnitudes.size(); ++k)
            loudest.magnitudes[k] = std::max (loudest.magnitudes[k], other.magnitudes[k]);

    return loudest;
}

void ColumnMapper::map (const Frame& frame, const ColumnSettings& settings, FrequencyScale& scale, Column& column)
{
    scale.setRange (settings.minHz, settings.maxHz);
    startAnewIfFormatChanged (settings);
    shiftHistory (settings);

    if (settings.enhanced)
    {
        enhanced.plot (frame, settings, scale, history);

        for (const auto& other : frame.others)
            enhanced.plot (other, settings, scale, history);
    }
    else
    {
        classic.fill (frame.others.empty() ? frame : mergeLoudest (frame), settings, scale, history.front());
    }

    column = history.front();
}

} // namespace mk::orlo
