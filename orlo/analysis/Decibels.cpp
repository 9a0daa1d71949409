// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Decibels.h"

namespace mk::orlo
{

void fastDecibels (const float* __restrict magnitudes, float* __restrict decibels, size_t count) noexcept
{
    for (size_t i = 0; i < count; ++i)
        decibels[i] = fastDecibels (magnitudes[i]);
}

void magnitudesToLevels (float* values, size_t count, float floorDb, float ceilingDb) noexcept
{
    const auto slope = 1.0f / (ceilingDb - floorDb);

    // Of two limits in one loop GCC makes branches that it then takes both of; of a limit alone, one instruction. The
    // comparisons are written so that a NaN stays one.
    for (size_t i = 0; i < count; ++i)
    {
        const auto level = (fastDecibels (values[i]) - floorDb) * slope;
        values[i] = level < 0.0f ? 0.0f : level;
    }

    for (size_t i = 0; i < count; ++i)
        values[i] = 1.0f < values[i] ? 1.0f : values[i];
}

} // namespace mk::orlo
