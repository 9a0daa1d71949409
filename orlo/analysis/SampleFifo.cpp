// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SampleFifo.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
void copyIn (std::atomic<float>* destination, const float* source, int count) noexcept
{
    for (int i = 0; i < count; ++i)
        destination[i].store (source[i], std::memory_order_relaxed);
}

void copyOut (float* destination, const std::atomic<float>* source, int count) noexcept
{
    for (int i = 0; i < count; ++i)
        destination[i] = source[i].load (std::memory_order_relaxed);
}
} // namespace

SampleFifo::SampleFifo (int numSamples)
    : indices (numSamples), ring (std::make_unique<std::atomic<float>[]> (size_t (numSamples)))
{
}

void SampleFifo::push (const float* samples, int count) noexcept
{
    const auto room = indices.getCapacity() - 1;

    if (count > room)
    {
        samples += count - room;
        count = room;
    }

    while (indices.getNumFree() < count)
    {
        const auto seen = indices.getReadIndex();
        indices.advanceRead (seen, std::min (count, indices.getNumReadyFrom (seen)));
    }

    const auto start = indices.getWriteIndex();
    const auto untilEnd = std::min (count, indices.getCapacity() - start);
    copyIn (ring.get() + start, samples, untilEnd);
    copyIn (ring.get(), samples + untilEnd, count - untilEnd);
    indices.advanceWrite (count);
}

void SampleFifo::pop (float* destination, int count, int skip) noexcept
{
    const auto seen = indices.getReadIndex();
    const auto untilEnd = std::min (count, indices.getCapacity() - seen);
    copyOut (destination, ring.get() + seen, untilEnd);
    copyOut (destination + untilEnd, ring.get(), count - untilEnd);

    // Where this fails, the writer or a discard has just moved past samples that were being read.
    indices.advanceRead (seen, count + skip);
}

} // namespace mk::orlo
