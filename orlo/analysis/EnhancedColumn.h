// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColumnSettings.h"
#include "FrameBin.h"

namespace mk::orlo
{

class FrequencyScale;

/** Draws the reassigned points of a frame into the columns of its window's span, oldest column first.

    A point is one pixel, the louder of two on one pixel wins. Points without a meaning are left out:
    those that would lie outside the window, more than a bin away, or outside the range. Columns must
    have settings.numRows levels each, and the scale the settings' range.
*/
void plotReassignedPoints (const Frame& frame,
                           const ColumnSettings& settings,
                           const FrequencyScale& scale,
                           std::vector<Column>& columns) noexcept;

} // namespace mk::orlo
