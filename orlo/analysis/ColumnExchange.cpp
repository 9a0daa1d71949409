// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnExchange.h"

#include <utility>

namespace mk::orlo
{

int ColumnExchange::takeQueue() noexcept
{
    if (const auto index = waiting.exchange (none, std::memory_order_acq_rel); index != none)
        return index;

    // The view reads one queue at most, and none waits, so at least one is free.
    const auto index = (freeQueues.load (std::memory_order_acquire) & 1) != 0 ? 0 : 1;
    freeQueues.fetch_and (~(1 << index), std::memory_order_relaxed);
    return index;
}

void ColumnExchange::push (ColumnBatch& batch)
{
    const auto index = takeQueue();
    auto& queue = queues[size_t (index)];

    if (queue.numUsed == queue.batches.size())
        queue.batches.emplace_back();

    std::swap (queue.batches[queue.numUsed++], batch);
    waiting.store (index, std::memory_order_release);
}

} // namespace mk::orlo
