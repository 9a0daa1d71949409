// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>

namespace mk::orlo
{

/** The display's ticks, written by the view on the message thread, read by the image builder. */
struct FrameClock
{
    std::atomic<float> columnsPerTick { 1.0f };
    std::atomic<std::uint64_t> tickCount { 0 }; /**< All ticks. */
    std::atomic<std::uint64_t> dueCount { 0 };  /**< Those at which a column could be drawn. */

    /** [message thread] Announces a tick that lasted the given number of image columns.
        The duration is stored before the counts, so a reader that sees the new count sees its duration too.
        @param isDue  false if too few frames wait for a column; the builder then learns of this tick together with
                      the next one that is due, and need not be woken */
    void tick (float columns, bool isDue = true) noexcept
    {
        columnsPerTick.store (columns, std::memory_order_relaxed);
        tickCount.fetch_add (1, std::memory_order_release);

        if (isDue)
            dueCount.fetch_add (1, std::memory_order_release);
    }

    static_assert (std::atomic<float>::is_always_lock_free);
    static_assert (std::atomic<std::uint64_t>::is_always_lock_free);
};

} // namespace mk::orlo
