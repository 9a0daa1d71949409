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
    std::atomic<std::uint64_t> tickCount { 0 };

    /** [message thread] Announces a tick that lasted the given number of image columns.
        The duration is stored before the count, so a reader that sees the new count sees its duration too. */
    void tick (float columns) noexcept
    {
        columnsPerTick.store (columns, std::memory_order_relaxed);
        tickCount.fetch_add (1, std::memory_order_release);
    }

    static_assert (std::atomic<float>::is_always_lock_free);
    static_assert (std::atomic<std::uint64_t>::is_always_lock_free);
};

} // namespace mk::orlo
