// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <atomic>

namespace mk::orlo
{

/** The read and write positions of a single-reader, single-writer ring.

    One slot always stays unused, so that equal positions mean empty. Besides the reader, the writer
    (to make room) and a third thread (to discard everything) may advance the read position; every
    advance is a compare-and-swap from the position its caller looked at, so that two of them at once
    never move the position back or past the writer.
*/
class RingIndices
{
public:
    explicit RingIndices (int numSlots) noexcept : capacity (numSlots) {}

    /** Slots with something in them. Any thread; exact only on the reader's or writer's own side. */
    [[nodiscard]] int getNumReady() const noexcept { return distance (read.load(), write.load()); }

    /** Slots that can still be written. */
    [[nodiscard]] int getNumFree() const noexcept { return capacity - 1 - getNumReady(); }

    [[nodiscard]] int getReadIndex() const noexcept { return read.load(); }
    [[nodiscard]] int getWriteIndex() const noexcept { return write.load(); }
    [[nodiscard]] int getCapacity() const noexcept { return capacity; }

    /** Slots ready as seen from a read position taken before. */
    [[nodiscard]] int getNumReadyFrom (int readIndex) const noexcept { return distance (readIndex, write.load()); }

    /** Moves the read position on by count from the position the caller saw.
        False, with nothing moved, if somebody else has moved it since. */
    bool advanceRead (int seen, int count) noexcept { return read.compare_exchange_strong (seen, wrap (seen + count)); }

    /** [writer] Makes what was written up to here readable. */
    void advanceWrite (int count) noexcept { write.store (wrap (write.load() + count)); }

    /** Any thread. Drops everything that is ready. */
    void discardAll() noexcept
    {
        for (auto seen = read.load(); ! read.compare_exchange_weak (seen, write.load());)
        {
        }
    }

    [[nodiscard]] int wrap (int index) const noexcept { return index >= capacity ? index - capacity : index; }

private:
    [[nodiscard]] int distance (int from, int to) const noexcept
    {
        const auto ready = to - from;
        return ready >= 0 ? ready : ready + capacity;
    }

    const int capacity;

    // Sequentially consistent throughout: an index is touched once a block or frame, so order costs nothing.
    std::atomic<int> read { 0 };
    std::atomic<int> write { 0 };

    static_assert (std::atomic<int>::is_always_lock_free);
};

} // namespace mk::orlo
