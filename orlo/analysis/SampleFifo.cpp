// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SampleFifo.h"

#include <algorithm>
#include <tuple>

namespace mk::orlo
{
namespace
{
/** A piece of the ring that goes over its end. */
struct Piece
{
    int start, untilEnd, rest;
};

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

void copyIn (std::atomic<float>* ring, Piece piece, const float* source) noexcept
{
    copyIn (ring + piece.start, source, piece.untilEnd);
    copyIn (ring, source + piece.untilEnd, piece.rest);
}

void copyOut (float* destination, const std::atomic<float>* ring, Piece piece) noexcept
{
    copyOut (destination, ring + piece.start, piece.untilEnd);
    copyOut (destination + piece.untilEnd, ring, piece.rest);
}
} // namespace

SampleFifo::SampleFifo (int numSamples)
    : indices (numSamples), ring (std::make_unique<std::atomic<float>[]> (size_t (numSamples)))
{
}

void SampleFifo::makeRoomForSecond()
{
    if (secondRing == nullptr)
        secondRing = std::make_unique<std::atomic<float>[]> (size_t (indices.getCapacity()));
}

void SampleFifo::push (const float* samples, int count, const float* second) noexcept
{
    const auto room = indices.getCapacity() - 1;

    if (count > room)
    {
        samples += count - room;
        second = second != nullptr ? second + (count - room) : nullptr;
        count = room;
    }

    // If the advance fails, the reader or a discard has made room meanwhile.
    for (auto seen = indices.getReadPosition(); indices.getNumFreeFrom (seen) < count; seen = indices.getReadPosition())
        std::ignore = indices.advanceRead (seen, std::min (count, indices.getNumReadyFrom (seen)));

    const auto start = indices.getSlot (indices.getWritePosition());
    const auto untilEnd = std::min (count, indices.getCapacity() - start);
    const Piece piece { start, untilEnd, count - untilEnd };
    copyIn (ring.get(), piece, samples);

    if (second != nullptr)
        copyIn (secondRing.get(), piece, second);

    indices.advanceWrite (count);
}

bool SampleFifo::pop (float* destination, int count, int skip, float* second) noexcept
{
    for (;;)
    {
        const auto seen = indices.getReadPosition();

        if (indices.getNumReadyFrom (seen) < count + skip)
            return false;

        const auto start = indices.getSlot (seen);
        const auto untilEnd = std::min (count, indices.getCapacity() - start);
        const Piece piece { start, untilEnd, count - untilEnd };
        copyOut (destination, ring.get(), piece);

        if (second != nullptr)
            copyOut (second, secondRing.get(), piece);

        // If this fails, the writer or a discard has moved the read position during the copy, which may then
        // be a mixture of old and new samples.
        if (indices.advanceRead (seen, count + skip))
        {
            popped = seen;
            return true;
        }
    }
}

} // namespace mk::orlo
