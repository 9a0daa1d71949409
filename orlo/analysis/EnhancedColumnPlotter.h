// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

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
    void selectPoints (const Frame& frame, const ColumnSettings& settings);
    void placePoints (const ColumnSettings& settings, const FrequencyScale& scale, std::vector<Column>& columns);
    void computeLevels (const ColumnSettings& settings);

    /** One entry for every point that is plotted. A member, so that a call does not allocate. */
    struct Points
    {
        std::vector<float> magnitude;
        std::vector<float> delay; // samples from the start of the window
        std::vector<float> hz;
        std::vector<float> level;
        std::vector<float*> pixel;
        size_t count = 0;
    };

    // Each step has its own loop over all points. In a single loop every call of log10 would spill the
    // registers, and the processor would wait for each of the scattered pixels instead of loading several.
    Points points;
};

} // namespace mk::orlo
