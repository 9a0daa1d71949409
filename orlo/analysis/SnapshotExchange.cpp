// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SnapshotExchange.h"

namespace mk::orlo
{

SnapshotExchange::SnapshotExchange() noexcept
    : back (&holders[0]), front (&holders[2]), waiting (reinterpret_cast<std::uintptr_t> (&holders[1]))
{
}

void SnapshotExchange::publish() noexcept
{
    const auto mine = reinterpret_cast<std::uintptr_t> (back) | freshBit;
    // The exchanged word holds one of our own pointers beside its bit. NOLINTNEXTLINE (performance-no-int-to-ptr)
    back = reinterpret_cast<Holder*> (waiting.exchange (mine, std::memory_order_acq_rel) & ~freshBit);
}

const juce::Image& SnapshotExchange::getFront() noexcept
{
    // Only the view clears the bit, so it is still set at the exchange.
    if ((waiting.load (std::memory_order_relaxed) & freshBit) != 0)
    {
        const auto mine = reinterpret_cast<std::uintptr_t> (front);
        // NOLINTNEXTLINE (performance-no-int-to-ptr): see publish()
        front = reinterpret_cast<Holder*> (waiting.exchange (mine, std::memory_order_acq_rel) & ~freshBit);
    }

    return front->snapshot.image;
}

} // namespace mk::orlo
