// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SampleFifo.h"

#include <algorithm>
#include <tuple>

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

    // If the advance fails, the reader or a discard has made room meanwhile.
    for (auto seen = indices.getReadPosition(); indices.getNumFreeFrom (seen) < count; seen = indices.getReadPosition())
        std::ignore = indices.advanceRead (seen, std::min (count, indices.getNumReadyFrom (seen)));

    const auto start = indices.getSlot (indices.getWritePosition());
    const auto untilEnd = std::min (count, indices.getCapacity() - start);
    copyIn (ring.get() + start, samples, untilEnd);
    copyIn (ring.get(), samples + untilEnd, count - untilEnd);
    indices.advanceWrite (count);
}

bool SampleFifo::pop (float* destination, int count, int skip) noexcept
{
    for (;;)
    {
        const auto seen = indices.getReadPosition();

        if (indices.getNumReadyFrom (seen) < count + skip)
            return false;

        const auto start = indices.getSlot (seen);
        const auto untilEnd = std::min (count, indices.getCapacity() - start);
        copyOut (destination, ring.get() + start, untilEnd);
        copyOut (destination + untilEnd, ring.get(), count - untilEnd);

        // If this fails, the writer or a discard has moved the read position during the copy, which may then
        // be a mixture of old and new samples.
        if (indices.advanceRead (seen, count + skip))
            return true;
    }
}

} // namespace mk::orlo
