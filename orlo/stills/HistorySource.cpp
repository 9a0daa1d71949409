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

HistorySource::HistorySource (const std::shared_ptr<const KeptSound>& keptSound, Source source)
    : HistorySource (keptSound, keptSound->getStart(), keptSound->getEnd(), source)
{
}

HistorySource::HistorySource (std::shared_ptr<const KeptSound> keptSound,
                              std::int64_t from,
                              std::int64_t to,
                              Source source)
    : sound (std::move (keptSound)), start (from), end (to), what (sound->getNumChannels() > 1 ? source : Source::left)
{
}

void HistorySource::read (std::int64_t position, std::span<float> destination)
{
    const auto count = std::int64_t (destination.size());
    const auto silenceBefore = std::clamp<std::int64_t> (start - position, 0, count);
    const auto soundEnd = std::clamp<std::int64_t> (end - position, silenceBefore, count);

    std::fill_n (destination.begin(), silenceBefore, 0.0f);

    for (auto done = silenceBefore; done < soundEnd; done += blockSize)
        readMixed (position + done,
                   destination.subspan (size_t (done), size_t (std::min (blockSize, soundEnd - done))));

    std::fill (destination.begin() + soundEnd, destination.end(), 0.0f);
}

void HistorySource::readMixed (std::int64_t position, std::span<float> destination) const
{
    using Vector = juce::FloatVectorOperations;
    const auto count = int (destination.size());

    readChannel (what == Source::right ? 1 : 0, position, destination);

    if (what == Source::left || what == Source::right)
        return;

    std::array<float, size_t (blockSize)> right;
    readChannel (1, position, std::span (right).first (destination.size()));

    if (what == Source::side)
        Vector::subtract (destination.data(), right.data(), count);
    else
        Vector::add (destination.data(), right.data(), count);

    Vector::multiply (destination.data(), 0.5f, count);
}

void HistorySource::readChannel (int channel, std::int64_t position, std::span<float> destination) const
{
    if (! sound->read (channel, position, destination.data(), int (destination.size())))
        throw SoundOverwritten();
}

void setSource (StillRequest& request, const std::shared_ptr<const KeptSound>& sound, Source what)
{
    const auto hasTwo = what == Source::loudest && sound->getNumChannels() > 1;
    request.source = std::make_shared<HistorySource> (sound, hasTwo ? Source::left : what);
    request.otherSource = hasTwo ? std::make_shared<HistorySource> (sound, Source::right) : nullptr;
}

} // namespace mk::orlo
