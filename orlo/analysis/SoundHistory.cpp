// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SoundHistory.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <thread>
#include <utility>

namespace mk::orlo
{

SoundHistory::~SoundHistory() { stop(); }

void SoundHistory::prepare (double rate, int channels)
{
    const std::lock_guard lock (mutex);
    const auto kept = std::clamp (channels, 1, 2);

    if (! (rate > 0.0) || (kept == numChannels && std::abs (rate - sampleRate) < 1.0e-9))
        return;

    sampleRate = rate;
    numChannels = kept;
    renew();
}

void SoundHistory::start (double seconds)
{
    const std::lock_guard lock (mutex);
    wantedSeconds = seconds > 0.0 ? std::min (seconds, longestSeconds) : 0.0; // a NaN is 0

    if (sound == nullptr || std::abs (keptSeconds - wantedSeconds) > 0.0)
        renew();
}

void SoundHistory::stop()
{
    const std::lock_guard lock (mutex);
    wantedSeconds = 0.0;
    hand (nullptr);
}

void SoundHistory::stopButKeep()
{
    const std::lock_guard lock (mutex);
    wantedSeconds = 0.0;
}

std::shared_ptr<const KeptSound> SoundHistory::getSound() const
{
    const std::lock_guard lock (mutex);
    return sound;
}

void SoundHistory::renew()
{
    hand (nullptr); // first, so that there are never two

    if (! (sampleRate > 0.0) || ! (wantedSeconds > 0.0))
        return;

    try
    {
        const auto numSamples = std::int64_t (std::ceil (wantedSeconds * sampleRate));
        hand (std::make_shared<KeptSound> (sampleRate, numChannels, numSamples));
        keptSeconds = wantedSeconds;
    }
    catch (const std::bad_alloc&)
    {
        // What needs the sound is not offered then, and everything else works.
    }
}

void SoundHistory::hand (std::shared_ptr<KeptSound> newSound)
{
    const auto old = std::exchange (sound, std::move (newSound));
    current.store (sound.get());

    // The audio thread is at most in the middle of one block.
    while (old != nullptr && inUse.load() == old.get())
        std::this_thread::yield();
}

void SoundHistory::push (const float* const* channels,
                         int numBlockChannels,
                         int numSamples,
                         const HostNote& note) noexcept
{
    auto* const target = current.load();

    if (target == nullptr || numBlockChannels < 1 || numSamples < 1)
        return;

    // Announced first and looked at again: whoever takes it away after that waits until it is no longer in use.
    inUse.store (target);

    if (current.load() == target)
        target->push (channels, numBlockChannels, numSamples, note);

    inUse.store (nullptr, std::memory_order_release);
}

} // namespace mk::orlo
