// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrequencyScale.h"

#include <cstring>

namespace mk::orlo
{

void FrequencyScale::ForwardMap::convertBlock (const float* __restrict hz,
                                               float* __restrict positions,
                                               size_t count) const noexcept
{
    // A loop with a table lookup is not vectorised, so the lookups have a loop of their own.
    std::array<int, blockSize> indices;
    std::array<float, blockSize> fractions;
    std::array<float, 2 * blockSize> entries;
    const auto last = tableSize - 2;
    const auto bottom = minHz;
    const auto top = maxHz;
    const auto end = straightEnd;
    const auto slope = straightSlope;

    for (size_t i = 0; i < count; ++i)
    {
        // The comparisons are written so that a NaN reads the first entry.
        const auto x = (hz[i] - tableStart) * entriesPerHertz;
        const auto positive = x > 0.0f ? x : 0.0f;
        const auto inTable = positive < float (last + 1) ? positive : float (last + 1);
        const auto index = int (inTable) < last ? int (inTable) : last;
        indices[i] = index;
        fractions[i] = inTable - float (index);
    }

    for (size_t i = 0; i < count; ++i)
        std::memcpy (&entries[2 * i], table + indices[i], 2 * sizeof (float));

    for (size_t i = 0; i < count; ++i)
    {
        // As lerp() does for tables that rise.
        const auto f = hz[i];
        const auto entry = entries[2 * i];
        const auto next = entries[2 * i + 1];
        const auto value = entry + fractions[i] * (next - entry);
        const auto limited = value < next ? value : next;
        const auto positive = limited > 0.0f ? limited : 0.0f;
        const auto curved = positive < 1.0f ? positive : 1.0f;
        const auto straight = (f - bottom) * slope;
        const auto position = f < end ? straight : curved;
        const auto belowTop = f < top ? position : 1.0f;
        positions[i] = f > bottom ? belowTop : 0.0f;
    }
}

void FrequencyScale::ForwardMap::convert (const float* hz, float* positions, size_t count) const noexcept
{
    if (table == nullptr || minHz >= maxHz)
    {
        for (size_t i = 0; i < count; ++i)
            positions[i] = (*this) (hz[i]);

        return;
    }

    for (size_t start = 0; start < count; start += blockSize)
        convertBlock (hz + start, positions + start, juce::jmin (blockSize, count - start));
}

} // namespace mk::orlo
