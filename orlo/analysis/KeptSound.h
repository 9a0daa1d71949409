// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HostNotes.h"
#include "SampleRing.h"

#include <vector>

namespace mk::orlo
{

/** The newest seconds of the sound that was analysed, of one or two channels of one sample rate.

    Samples are counted from 0, the first that was ever kept here; what was paused or suspended is not counted, as it is
    not in the picture either. One thread writes, any number of threads read at the same time without waiting, and
    learn if what they have read was overwritten meanwhile. All of it is atomic, so none of this is a data race.
*/
class KeptSound
{
public:
    /** Room for numSamples of each channel, at least 1, all of whose pages are touched here, so that the writer never
        waits for memory. Throws std::bad_alloc. Not on the audio thread.
        @param sampleRate   hertz
        @param numChannels  1 or 2 */
    KeptSound (double sampleRate, int numChannels, std::int64_t numSamples);

    KeptSound (const KeptSound&) = delete;
    KeptSound& operator= (const KeptSound&) = delete;

    /** Hertz. */
    [[nodiscard]] double getSampleRate() const noexcept { return sampleRate; }
    [[nodiscard]] int getNumChannels() const noexcept { return int (channels.size()); }

    /** How many samples of each channel fit in. */
    [[nodiscard]] std::int64_t getCapacity() const noexcept { return channels.front().getCapacity(); }

    /** Any thread. The sample after the newest one. */
    [[nodiscard]] std::int64_t getEnd() const noexcept { return end.load (std::memory_order_acquire); }

    /** Any thread. The oldest sample that is still kept; the writer may overwrite it at any moment. */
    [[nodiscard]] std::int64_t getStart() const noexcept;

    /** Any thread, wait-free. Copies count samples of one channel from a position on. False, with the destination
        undefined, if some of them are not kept yet or any more, or were overwritten meanwhile. No allocation. */
    [[nodiscard]] bool read (int channel, std::int64_t position, float* destination, int count) const noexcept;

    /** Any thread. What the host told about a sample: the newest note that was made before or at it. Not isKnown() if
        the host told nothing, or too long ago. No allocation. */
    [[nodiscard]] HostNote getHostNote (std::int64_t position) const noexcept { return notes.find (position); }

    /** Any thread. All notes that are left, oldest first, for a ruler. A note holds until the next one. Allocates. */
    [[nodiscard]] std::vector<HostNote> getHostNotes() const { return notes.getAll(); }

    //==============================================================================
    /** [writer] Appends a block of at least one channel: of fewer channels than are kept the last one is repeated, of
        more the others are left out. The note's position is ignored: it is about the block's first sample. Wait-free. */
    void push (const float* const* blockChannels, int numBlockChannels, int numSamples, HostNote note) noexcept;

private:
    const double sampleRate;
    std::vector<SampleRing> channels;
    HostNotes notes;

    // Written by the writer, read by any thread.
    std::atomic<std::int64_t> begun { 0 }; // the end of the block that is being written, or of the newest one
    std::atomic<std::int64_t> end { 0 };

    static_assert (std::atomic<std::int64_t>::is_always_lock_free);
};

} // namespace mk::orlo
