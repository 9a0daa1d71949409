// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "RingIndices.h"

#include <memory>

namespace mk::orlo
{

/** Single-reader, single-writer ring of one or two streams of samples from the audio thread to the analysis worker.

    Lock-free on both sides: an operation is repeated only if another thread has moved the read position
    meanwhile. When there is no room the writer drops the oldest samples, so the reader always reaches the newest
    audio; a drop shows as a skipped column. The writer may overwrite samples while the reader is copying them;
    the reader detects that and starts again. Each sample is an atomic, so that this overlap is not a data
    race.
*/
class SampleFifo
{
public:
    using Position = RingIndices::Position;

    /** Room for numSamples - 1 samples of a single stream. Allocates; call before audio starts. */
    explicit SampleFifo (int numSamples);

    /** [message thread] Makes room for a second stream, if there is none. Allocates. The audio thread must get to know
        of it afterwards, by an operation that acquires what this thread releases. */
    void makeRoomForSecond();

    /** [audio thread] Appends count samples, dropping the oldest if there is no room; of a block
        larger than the whole ring only the newest samples are kept.

        @param second  the samples of the second stream, or null if there is none */
    void push (const float* samples, int count, const float* second = nullptr) noexcept;

    /** [worker] Copies and removes the count oldest samples, and removes the next skip samples too.
        False, with nothing removed and the destination undefined, if fewer than count + skip are ready.

        @param second  gets the samples of the second stream, which have no meaning if none were pushed; or null */
    [[nodiscard]] bool pop (float* destination, int count, int skip, float* second = nullptr) noexcept;

    /** [worker] Counts all samples that were pushed before the oldest of those that pop() has returned last. */
    [[nodiscard]] Position getPoppedPosition() const noexcept { return popped; }

    /** [audio thread] Counts all samples that were pushed. */
    [[nodiscard]] Position getWritePosition() const noexcept { return indices.getWritePosition(); }

    /** Any thread. */
    [[nodiscard]] int getNumReady() const noexcept { return indices.getNumReady(); }

    /** Any thread. Drops all samples that are ready. */
    void discardAll() noexcept { indices.discardAll(); }

private:
    RingIndices indices;

    // Accessed by relaxed loads and stores, since the indices give the samples their order.
    std::unique_ptr<std::atomic<float>[]> ring;
    std::unique_ptr<std::atomic<float>[]> secondRing; // written once by the message thread, see makeRoomForSecond()
    Position popped = 0;                              // used by the worker only

    static_assert (std::atomic<float>::is_always_lock_free);
};

} // namespace mk::orlo
