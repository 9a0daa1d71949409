// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "RingIndices.h"

#include <memory>

namespace mk::orlo
{

/** Single-reader, single-writer ring of samples from the audio thread to the analysis worker.

    Lock-free on both sides: an operation is repeated only if another thread has moved the read position
    meanwhile. When there is no room the writer drops the oldest samples, so the reader always reaches the newest
    audio; a drop shows as a skipped column. The writer may overwrite samples while the reader is copying them;
    the reader detects that and starts again. Each sample is an atomic, so that this overlap is not a data
    race.
*/
class SampleFifo
{
public:
    /** Room for numSamples - 1 samples. Allocates; call before audio starts. */
    explicit SampleFifo (int numSamples);

    /** [audio thread] Appends count samples, dropping the oldest if there is no room; of a block
        larger than the whole ring only the newest samples are kept. */
    void push (const float* samples, int count) noexcept;

    /** [worker] Copies and removes the count oldest samples, and removes the next skip samples too.
        False, with nothing removed and the destination undefined, if fewer than count + skip are ready. */
    [[nodiscard]] bool pop (float* destination, int count, int skip) noexcept;

    /** Any thread. */
    [[nodiscard]] int getNumReady() const noexcept { return indices.getNumReady(); }

    /** Any thread. Drops all samples that are ready. */
    void discardAll() noexcept { indices.discardAll(); }

private:
    RingIndices indices;

    // Accessed by relaxed loads and stores, since the indices give the samples their order.
    std::unique_ptr<std::atomic<float>[]> ring;

    static_assert (std::atomic<float>::is_always_lock_free);
};

} // namespace mk::orlo
