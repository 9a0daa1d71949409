// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>

namespace mk::orlo
{

/** The read and write positions of a single-reader, single-writer ring.

    Positions count the slots since the start and never wrap, so each position refers to the same content for
    ever: a compare-and-swap from an old position cannot succeed after the ring has gone round.

    One slot always stays unused, so that a ring of n slots holds n - 1. Besides the reader, the writer (to make
    room) and a third thread (to discard everything) may advance the read position. Every advance is a
    compare-and-swap from the position that its caller has read, so that of two at once only one succeeds and
    the read position never passes the write position.
*/
class RingIndices
{
public:
    using Position = std::int64_t;

    explicit RingIndices (int numSlots) noexcept : capacity (numSlots) {}

    /** The number of filled slots. Any thread; exact only on the reader's and the writer's thread. */
    [[nodiscard]] int getNumReady() const noexcept
    {
        // Read first: the write position never falls behind a read position seen before it.
        const auto from = getReadPosition();
        const auto ready = getNumReadyFrom (from);

        // A third thread may be interrupted between the two loads while the ring moves on.
        return ready < capacity ? ready : capacity - 1;
    }

    /** Any thread. */
    [[nodiscard]] Position getReadPosition() const noexcept { return read.load(); }
    [[nodiscard]] Position getWritePosition() const noexcept { return write.load(); }

    [[nodiscard]] int getCapacity() const noexcept { return capacity; }

    /** The index in the ring of a position. */
    [[nodiscard]] int getSlot (Position position) const noexcept { return int (position % capacity); }

    /** Slots ready as seen from a read position taken before. */
    [[nodiscard]] int getNumReadyFrom (Position readPosition) const noexcept
    {
        return int (write.load() - readPosition);
    }

    /** [writer] Slots free as seen from a read position taken before; exact while the read position is that one. */
    [[nodiscard]] int getNumFreeFrom (Position readPosition) const noexcept
    {
        return capacity - 1 - getNumReadyFrom (readPosition);
    }

    /** Moves the read position on by count, at most getNumReadyFrom (seen), from the position that the caller
        has read. False, with nothing moved, if another thread has moved it since. */
    [[nodiscard]] bool advanceRead (Position seen, int count) noexcept
    {
        return read.compare_exchange_strong (seen, seen + count);
    }

    /** [writer] Makes what was written up to here readable. */
    void advanceWrite (int count) noexcept { write.store (write.load() + count); }

    /** Any thread. Drops everything that is ready. */
    void discardAll() noexcept
    {
        // The write position is read after the read position, so it is never the smaller of the two.
        for (auto seen = read.load(); ! read.compare_exchange_weak (seen, write.load());)
        {
        }
    }

private:
    const int capacity;

    // Sequentially consistent throughout: positions are accessed only once per block or frame, so the cost is small.
    std::atomic<Position> read { 0 };
    std::atomic<Position> write { 0 };

    static_assert (std::atomic<Position>::is_always_lock_free);
};

} // namespace mk::orlo
