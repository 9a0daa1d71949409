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

void ColumnMapper::map (const Frame& frame, const ColumnSettings& settings, FrequencyScale& scale, Column& column)
{
    scale.setRange (settings.minHz, settings.maxHz);
    startAnewIfFormatChanged (settings);
    shiftHistory (settings);

    if (settings.enhanced)
        enhanced.plot (frame, settings, scale, history);
    else
        classic.fill (frame, settings, scale, history.front());

    column = history.front();
}

} // namespace mk::orlo
