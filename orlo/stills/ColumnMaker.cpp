// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnMaker.h"

namespace mk::orlo
{

ColumnMaker::ColumnMaker (const RenderSettings& settings)
    : range { settings.minFreqFraction,
              settings.maxFreqFraction,
              settings.floorDb,
              settings.ceilingDb,
              settings.height },
      // The logarithm is most of the work of a Classic column. A larger magnitude gives a higher level, so
      // magnitudes can be merged first and only the maxima need a logarithm. Not in Enhanced, which takes few
      // logarithms, nor with the floor above the ceiling, where a larger magnitude gives a lower level.
      mergesMagnitudes (! settings.hop.enhanced && settings.floorDb < settings.ceilingDb),
      column (size_t (settings.height))
{
    scale.setScaleType (settings.scaleType);
}

const Column& ColumnMaker::make (const Frame& frame)
{
    const auto columnSettings = makeColumnSettings (frame.format, range);

    if (mergesMagnitudes)
    {
        scale.setRange (columnSettings.minHz, columnSettings.maxHz);
        classic.fillMagnitudes (frame, columnSettings, scale, column);
    }
    else
    {
        mapper.map (frame, columnSettings, scale, column);
    }

    return column;
}

void ColumnMaker::finish (Column& merged) const noexcept
{
    if (mergesMagnitudes)
        ClassicColumnMapper::magnitudesToLevels (makeColumnSettings ({}, range), merged);
}

} // namespace mk::orlo
