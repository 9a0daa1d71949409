// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColumnSettings.h"
#include "FrameBin.h"

namespace mk::orlo
{

class FrequencyScale;

/** Draws the reassigned points of frames into the columns of their window's span. One thread at a time.

    A point is one pixel, the louder of two on one pixel wins. Points without a meaning are left out:
    those that would lie outside the window, more than a bin away, or outside the range.
*/
class EnhancedColumn
{
public:
    /** Adds the frame's points to the columns, the oldest of the window's span first. Columns must have
        settings.numRows levels each, and the scale the settings' range. Allocates only when frames grow. */
    void plot (const Frame& frame,
               const ColumnSettings& settings,
               const FrequencyScale& scale,
               std::vector<Column>& columns);

private:
    void selectPoints (const Frame& frame, const ColumnSettings& settings);
    void placePoints (const ColumnSettings& settings, const FrequencyScale& scale, std::vector<Column>& columns);
    void computeLevels (const ColumnSettings& settings);

    /** Of one call, and kept so that calls need not allocate: an entry for every point that is drawn. */
    struct Points
    {
        std::vector<float> magnitude;
        std::vector<float> delay; // samples from the start of the window
        std::vector<float> hz;
        std::vector<float> level;
        std::vector<float*> pixel;
        size_t count = 0;
    };

    // The steps run one after the other over all points: the logarithm's calls would otherwise throw
    // everything else out of its registers, and the scattered pixels would be waited for one by one.
    Points points;
};

} // namespace mk::orlo
