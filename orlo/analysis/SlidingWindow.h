// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"

namespace mk::orlo
{

/** The newest samples of a signal, as many as an analysis window sees.

    The window slides over a longer buffer, so that the samples in it are moved only each time it reaches the buffer's
    end. Its last sample is empty, unless the hop is as long as the window or longer. One thread at a time.
*/
class SlidingWindow
{
public:
    /** Changes the length, 1 or more. The oldest samples of the window stay at its start. Allocates. */
    void setLength (int newLength);

    /** How many samples of each hop are read: if the hop is longer than the window, the rest is skipped. */
    [[nodiscard]] int getNumSamplesRead (int hop) const noexcept { return hop < length ? hop : length; }

    /** Where the first getNumSamplesRead (hop) samples of the next hop, of at least 1, are to be written before
        advance() is called. What the window shows does not change. */
    [[nodiscard]] float* getHopBuffer (int hop) noexcept;

    /** Moves the window on over the hop that has been written. */
    void advance (int hop) noexcept;

    /** The samples in the window, oldest first. */
    [[nodiscard]] const float* getSamples() const noexcept { return buffer.data() + start; }

    /** Their number, which is the window's length or one less. */
    [[nodiscard]] size_t getNumSamples() const noexcept { return numSamples; }

private:
    int length = 0;
    AlignedFloats buffer;
    size_t start = 0; // of the window in the buffer
    size_t numSamples = 0;
};

} // namespace mk::orlo
