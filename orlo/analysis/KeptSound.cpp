// SPDX-License-Identifier: AGPL-3.0-or-later
#include "KeptSound.h"

#include <algorithm>

namespace mk::orlo
{

KeptSound::KeptSound (double rate, int numChannels, std::int64_t numSamples) : sampleRate (rate)
{
    channels.reserve (size_t (numChannels));

    for (int i = 0; i < numChannels; ++i)
        channels.emplace_back (numSamples);
}

std::int64_t KeptSound::getStart() const noexcept
{
    return std::max<std::int64_t> (0, begun.load (std::memory_order_relaxed) - getCapacity());
}

bool KeptSound::read (int channel, std::int64_t position, float* destination, int count) const noexcept
{
    if (position < getStart() || position + count > getEnd())
        return false;

    channels[size_t (channel)].read (position, destination, count);

    // Whoever has read a sample of a block has also read how far it goes.
    return position >= getStart();
}

void KeptSound::push (const float* const* blockChannels, int numBlockChannels, int numSamples, HostNote note) noexcept
{
    const auto position = end.load (std::memory_order_relaxed);
    const auto newEnd = position + numSamples;
    note.position = position;
    notes.add (note, sampleRate);

    begun.store (newEnd, std::memory_order_relaxed);

    // Of a block that is longer than all that is kept, only the end.
    const auto numKept = int (std::min<std::int64_t> (numSamples, getCapacity()));

    for (int channel = 0; channel < getNumChannels(); ++channel)
    {
        const auto* const source = blockChannels[std::min (channel, numBlockChannels - 1)];
        channels[size_t (channel)].write (newEnd - numKept, source + (numSamples - numKept), numKept);
    }

    end.store (newEnd, std::memory_order_release);
}

} // namespace mk::orlo
