// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillMemory.h"

#include <atomic>
#include <span>

namespace mk::orlo
{

/** The largest magnitude of each pixel of a picture so far, column by column, row 0 on top. Several threads may raise
    them at the same time: which is the largest does not depend on who came first. */
class MagnitudeGrid
{
public:
    /** All are zero. Throws std::bad_alloc. */
    MagnitudeGrid (int numColumns, int numRows, StillMemory& memory)
        : height (size_t (numRows)), values (memory.obtainCleared (size_t (numColumns) * height))
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
        // Stored in any case: in noise a branch would be mispredicted often.
        const std::atomic_ref<float> value (getValue (column, row));
        const auto before = value.load (std::memory_order_relaxed);
        value.store (magnitude > before ? magnitude : before, std::memory_order_relaxed);
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
        return values.get()[size_t (column) * height + size_t (row)];
    }

    const size_t height;
    const StillMemory::Block values;

    static_assert (std::atomic_ref<float>::is_always_lock_free);
};

} // namespace mk::orlo
