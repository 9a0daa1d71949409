// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"

namespace mk::orlo
{

/** Finds the largest values of many ranges of an array. The ranges stay the same from call to call.

    A loop over the values of each range would be mispredicted at the end of almost every range. Instead, the largest of
    2, 4, 8 ... values in a row are found everywhere at once; a range is covered by two such runs, which may overlap.
    One thread at a time.
*/
class RangeMaxima
{
public:
    /** The values first, first + 1 ... end - 1 of the array, of which there is at least one. */
    struct Range
    {
        int target; /**< The index of the result. */
        int first, end;
    };

    /** Sets the ranges of an array of numValues. Allocates. */
    void setRanges (const std::vector<Range>& ranges, size_t numValues);

    /** Raises results[target] of each range, 0 or more, to the largest of its values. NaNs count as 0. */
    void raise (const float* values, float* results) noexcept;

private:
    /** The ranges that two runs of the same length cover, and these runs. */
    struct Level
    {
        struct Cover
        {
            int target, first, second; // where the runs begin
        };

        std::vector<Cover> covers;
    };

    std::vector<Level> levels;      // of runs of 1, 2, 4, 8 ... values
    AlignedFloats runs, longerRuns; // the largest values of the runs that begin at each value
    size_t firstNeeded = 0;         // the values that belong to any range
    size_t endNeeded = 0;
};

} // namespace mk::orlo
