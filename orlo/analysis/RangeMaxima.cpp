// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RangeMaxima.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace mk::orlo
{
namespace
{
/** From the largest values of runs of that length those of runs twice as long, of which there are count. */
void doubleRuns (const float* __restrict runs, size_t length, float* __restrict longerRuns, size_t count) noexcept
{
    for (size_t i = 0; i < count; ++i)
        longerRuns[i] = runs[i] < runs[i + length] ? runs[i + length] : runs[i];
}
} // namespace

void RangeMaxima::setRanges (const std::vector<Range>& ranges, size_t numValues)
{
    levels.clear();
    runs.assign (numValues, 0.0f);
    longerRuns.assign (numValues, 0.0f);
    firstNeeded = numValues;
    endNeeded = 0;

    for (const auto& range : ranges)
    {
        const auto level = size_t (std::bit_width (unsigned (range.end - range.first)) - 1);

        if (levels.size() <= level)
            levels.resize (level + 1);

        levels[level].covers.push_back ({ range.target, range.first, range.end - (1 << level) });
        firstNeeded = std::min (firstNeeded, size_t (range.first));
        endNeeded = std::max (endNeeded, size_t (range.end));
    }
}

void RangeMaxima::raise (const float* values, float* results) noexcept
{
    if (levels.empty())
        return;

    // A NaN would hide what comes before or after it.
    for (size_t i = firstNeeded; i < endNeeded; ++i)
        runs[i] = values[i] > 0.0f ? values[i] : 0.0f;

    size_t length = 1;

    for (const auto& level : levels)
    {
        for (const auto& cover : level.covers)
        {
            const auto first = runs[size_t (cover.first)];
            const auto second = runs[size_t (cover.second)];
            const auto larger = first < second ? second : first;
            auto& result = results[cover.target];
            result = result < larger ? larger : result;
        }

        if (&level != &levels.back())
        {
            const auto count = endNeeded - firstNeeded - 2 * length + 1;
            doubleRuns (runs.data() + firstNeeded, length, longerRuns.data() + firstNeeded, count);
            std::swap (runs, longerRuns);
            length *= 2;
        }
    }
}

} // namespace mk::orlo
