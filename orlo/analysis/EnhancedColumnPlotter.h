// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"
#include "ColumnSettings.h"
#include "FrameBin.h"

namespace mk::orlo
{

class FrequencyScale;

/** Plots the reassigned points of frames into the columns of their window's span. One thread at a time.

    A point is one pixel; of two points on one pixel the louder is shown. Points that were moved out of
    their window, by a bin or more, or out of the range are not plotted: there the reassignment has failed.
*/
class EnhancedColumnPlotter
{
public:
    /** Adds the frame's points to the columns of the window's span, oldest column first. Each column must have
        settings.numRows levels, and the scale the settings' range. Allocates only when frames grow. */
    void plot (const Frame& frame,
               const ColumnSettings& settings,
               const FrequencyScale& scale,
               std::vector<Column>& columns);

private:
    [[nodiscard]] size_t selectPoints (const Frame& frame, int numColumns) noexcept;

    /** One entry for every bin at first, and then for every point that is plotted. A member, so that a call does not
        allocate. */
    struct Points
    {
        void resize (size_t numBins)
        {
            for (auto* values : { &hz, &position, &level })
                values->resize (numBins);

            for (auto* values : { &column, &row, &isPlotted })
                values->resize (numBins);
        }

        AlignedFloats hz, position, level; // the level is the magnitude until it is converted
        std::vector<int> column, row, isPlotted;
    };

    // Each step has its own loop over all points: most of these loops are vectorised, and in the others the processor
    // need not wait for one scattered value before it loads the next.
    Points points;
};

} // namespace mk::orlo
