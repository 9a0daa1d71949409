// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "FrameBin.h"
#include "RingIndices.h"

#include <atomic>
#include <vector>

namespace mk::orlo
{

/** Single-reader, single-writer ring of frames from the analysis worker to the image builder.

    Frames are written and read where they are, without a copy. Lock-free on both sides, and free of allocation once
    every vector in circulation has grown to the size of a frame. When it is full the writer drops the oldest frame.
    The slots hold pointers that are exchanged atomically, so a frame that is dropped while it is being read stays
    valid for its reader.
*/
class FrameFifo
{
public:
    /** Room for numSlots - 1 frames. Allocates. */
    explicit FrameFifo (int numSlots);

    /** [writer] The frame that the next push() appends; it holds what an earlier one left. */
    [[nodiscard]] Frame& getNext() noexcept { return writerSpare->frame; }

    /** [writer] Appends the frame written to getNext(), dropping the oldest one if there is no room. */
    void push() noexcept;

    /** [reader] Takes the oldest frame into destination, whose own storage goes back into circulation.
        False, with destination unchanged, if there is none. */
    bool pop (Frame& destination) noexcept;

    /** Any thread. */
    [[nodiscard]] int getNumReady() const noexcept { return indices.getNumReady(); }

    /** Any thread. Drops all frames that are ready. */
    void discardAll() noexcept { indices.discardAll(); }

private:
    struct Entry
    {
        Frame frame;
        bool isTaken = true; // whether the reader has had the frame
    };

    RingIndices indices;

    // One entry for each slot and one spare for each side. The holder of an entry's pointer owns the entry: the
    // slot, the writer through writerSpare, or the reader through readerSpare.
    std::vector<Entry> entries;
    std::vector<std::atomic<Entry*>> slots;
    Entry* writerSpare;
    Entry* readerSpare;

    static_assert (std::atomic<Entry*>::is_always_lock_free);
};

} // namespace mk::orlo
