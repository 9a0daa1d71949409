// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

namespace mk::orlo
{

/** The newest samples of one channel, written by one thread while others read.

    Two neighbouring samples are one atomic, which halves the number of stores: compilers do not vectorise atomic ones.
    A sample that is overwritten while it is read gives the old or the new value; the owner has to find out which.
*/
class SampleRing
{
public:
    /** Room for at least that many samples, 1 or more. Writes to all of the memory. Throws std::bad_alloc. */
    explicit SampleRing (std::int64_t numSamples);

    [[nodiscard]] std::int64_t getCapacity() const noexcept { return 2 * numPairs; }

    /** [writer] Writes samples at a position, 0 or more; count is at most the capacity. What the writer has stored
        before is visible to a reader that has read one of these samples. Wait-free. */
    void write (std::int64_t position, const float* samples, int count) noexcept;

    /** Any thread. Copies what is there. Wait-free. */
    void read (std::int64_t position, float* destination, int count) const noexcept;

private:
    using Pair = std::uint64_t;

    void writeOne (std::int64_t index, int place, float sample) noexcept;

    std::int64_t numPairs;
    std::unique_ptr<std::atomic<Pair>[]> pairs;

    static_assert (std::atomic<Pair>::is_always_lock_free);
};

} // namespace mk::orlo
