// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SlidingWindow.h"

#include <algorithm>
#include <utility>

namespace mk::orlo
{
namespace
{
// The longer the buffer, the less often samples are moved; but it should stay in the processor's cache.
constexpr size_t windowsInBuffer = 4;
} // namespace

void SlidingWindow::setLength (int newLength)
{
    AlignedFloats resized (size_t (newLength) * windowsInBuffer, 0.0f);
    std::copy_n (getSamples(), std::min (numSamples, size_t (newLength)), resized.data());
    buffer = std::move (resized);
    length = newLength;
    start = 0;
    numSamples = size_t (length) - 1;
}

float* SlidingWindow::getHopBuffer (int hop) noexcept
{
    const auto windowLength = size_t (length);

    if (start + windowLength - 1 + size_t (getNumSamplesRead (hop)) > buffer.size())
    {
        std::copy_n (getSamples(), numSamples, buffer.data());
        start = 0;
    }

    return buffer.data() + start + windowLength - 1;
}

void SlidingWindow::advance (int hop) noexcept
{
    if (hop < length)
    {
        start += size_t (hop);
        numSamples = size_t (length) - 1;
    }
    else
    {
        start += size_t (length) - 1;
        numSamples = size_t (length);
    }
}

} // namespace mk::orlo
