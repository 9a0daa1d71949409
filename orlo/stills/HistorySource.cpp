// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HistorySource.h"

#include <juce_audio_basics/juce_audio_basics.h>

#include <algorithm>
#include <array>

namespace mk::orlo
{
namespace
{
constexpr std::int64_t blockSize = 4096;
} // namespace

HistorySource::HistorySource (std::shared_ptr<const KeptSound> keptSound)
    : HistorySource (keptSound, keptSound->getStart(), keptSound->getEnd())
{
}

HistorySource::HistorySource (std::shared_ptr<const KeptSound> keptSound, std::int64_t from, std::int64_t to)
    : sound (std::move (keptSound)), start (from), end (to)
{
}

void HistorySource::read (std::int64_t position, std::span<float> destination)
{
    const auto count = std::int64_t (destination.size());
    const auto silenceBefore = std::clamp<std::int64_t> (start - position, 0, count);
    const auto soundEnd = std::clamp<std::int64_t> (end - position, silenceBefore, count);

    std::fill_n (destination.begin(), silenceBefore, 0.0f);

    for (auto done = silenceBefore; done < soundEnd; done += blockSize)
        readMean (position + done, destination.subspan (size_t (done), size_t (std::min (blockSize, soundEnd - done))));

    std::fill (destination.begin() + soundEnd, destination.end(), 0.0f);
}

void HistorySource::readMean (std::int64_t position, std::span<float> destination) const
{
    using Vector = juce::FloatVectorOperations;
    const auto count = int (destination.size());

    if (! sound->read (0, position, destination.data(), count))
        throw SoundOverwritten();

    if (sound->getNumChannels() < 2)
        return;

    std::array<float, size_t (blockSize)> other;

    if (! sound->read (1, position, other.data(), count))
        throw SoundOverwritten();

    // As the analysis gets it.
    Vector::add (destination.data(), other.data(), count);
    Vector::multiply (destination.data(), 0.5f, count);
}

} // namespace mk::orlo
