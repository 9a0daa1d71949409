// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LoopPlayHead.h"

namespace mk::orlo::host
{
namespace
{
constexpr double beatsPerMinute = 120.0;
}

void LoopPlayHead::restart (double sampleRate, juce::int64 loopLength) noexcept
{
    rate = sampleRate;
    length = juce::jmax (juce::int64 (1), loopLength);
    position.store (0, std::memory_order_relaxed);
}

void LoopPlayHead::advance (int numSamples) noexcept
{
    position.store ((position.load (std::memory_order_relaxed) + numSamples) % length, std::memory_order_relaxed);
}

juce::Optional<juce::AudioPlayHead::PositionInfo> LoopPlayHead::getPosition() const
{
    const auto toBeats = [this] (juce::int64 samples) { return double (samples) / rate * beatsPerMinute / 60.0; };
    const auto samples = position.load (std::memory_order_relaxed);

    PositionInfo info;
    info.setIsPlaying (true);
    info.setIsLooping (true);
    info.setTimeInSamples (samples);
    info.setTimeInSeconds (double (samples) / rate);
    info.setBpm (beatsPerMinute);
    info.setTimeSignature (TimeSignature { 4, 4 });
    info.setPpqPosition (toBeats (samples));
    info.setLoopPoints (LoopPoints { 0.0, toBeats (length) });
    return info;
}

} // namespace mk::orlo::host
