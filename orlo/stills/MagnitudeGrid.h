// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <atomic>
#include <cstddef>
#include <span>

namespace mk::orlo
{

/** The largest magnitude of each pixel of a picture so far, column by column, row 0 on top. Several threads may raise
    them at the same time: which is the largest does not depend on who came first. */
class MagnitudeGrid
{
public:
    /** All are zero. Large grids are of memory that the system has cleared, which takes no time here, but when a column
        is first used. Throws std::bad_alloc. */
    MagnitudeGrid (int numColumns, int numRows) : height (size_t (numRows)), values (size_t (numColumns) * height, true)
    {
    }

    /** The magnitudes of a column, while nobody raises them. */
    [[nodiscard]] std::span<const float> getColumn (int column) const noexcept
    {
        return { values.get() + size_t (column) * height, height };
    }

    /** Raises a magnitude that no other thread can raise at this time. Does nothing for a NaN. */
    void raiseOwn (int column, int row, float magnitude) noexcept
    {
        const std::atomic_ref<float> value (getValue (column, row));

        if (magnitude > value.load (std::memory_order_relaxed))
            value.store (magnitude, std::memory_order_relaxed);
    }

    /** Raises a magnitude that another thread may be raising. Does nothing for a NaN. */
    void raiseShared (int column, int row, float magnitude) noexcept
    {
        const std::atomic_ref<float> value (getValue (column, row));
        auto before = value.load (std::memory_order_relaxed);

        while (magnitude > before && ! value.compare_exchange_weak (before, magnitude, std::memory_order_relaxed))
        {
        }
    }

private:
    [[nodiscard]] float& getValue (int column, int row) noexcept
    {
        return values[size_t (column) * height + size_t (row)];
    }

    const size_t height;
    juce::HeapBlock<float, true> values; // throws if there is no memory

    static_assert (std::atomic_ref<float>::is_always_lock_free);
};

} // namespace mk::orlo
