// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrameFifo.h"

#include <tuple>
#include <utility>

namespace mk::orlo
{

FrameFifo::FrameFifo (int numSlots)
    : indices (numSlots),
      entries (size_t (numSlots) + 2),
      slots (size_t (numSlots)),
      writerSpare (&entries[size_t (numSlots)]),
      readerSpare (&entries[size_t (numSlots) + 1])
{
    for (size_t i = 0; i < slots.size(); ++i)
        slots[i].store (&entries[i], std::memory_order_relaxed);
}

void FrameFifo::push() noexcept
{
    writerSpare->isTaken = false;

    // If the advance fails, the reader or a discard has made room meanwhile.
    for (auto seen = indices.getReadPosition(); indices.getNumFreeFrom (seen) < 1; seen = indices.getReadPosition())
        std::ignore = indices.advanceRead (seen, 1);

    auto& slot = slots[size_t (indices.getSlot (indices.getWritePosition()))];
    writerSpare = slot.exchange (writerSpare, std::memory_order_acq_rel);
    indices.advanceWrite (1);
}

bool FrameFifo::pop (Frame& destination) noexcept
{
    for (;;)
    {
        const auto seen = indices.getReadPosition();

        if (indices.getNumReadyFrom (seen) < 1)
            return false;

        readerSpare->isTaken = true;
        readerSpare = slots[size_t (indices.getSlot (seen))].exchange (readerSpare, std::memory_order_acq_rel);

        // If the advance fails, the frame was dropped meanwhile; if it is taken, an earlier failed attempt has
        // left it in this slot. In both cases the loop goes on with the next frame.
        if (indices.advanceRead (seen, 1) && ! readerSpare->isTaken)
        {
            std::swap (destination, readerSpare->frame);
            return true;
        }
    }
}

} // namespace mk::orlo
