// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_basics/juce_audio_basics.h>

#include <atomic>

namespace mk::orlo::host
{

/** A transport that always plays and always loops, at 120 beats a minute. */
class LoopPlayHead final : public juce::AudioPlayHead
{
public:
    /** [while no audio runs] Goes back to the start of a loop of that many samples at a rate in hertz. */
    void restart (double sampleRate, juce::int64 loopLength) noexcept;

    /** [audio thread] Moves on by the samples of a block that has been played. Wait-free. */
    void advance (int numSamples) noexcept;

    /** Any thread; plug-ins usually call it on the audio thread. Wait-free. */
    [[nodiscard]] juce::Optional<PositionInfo> getPosition() const override;

private:
    double rate = 44100.0;
    juce::int64 length = 1;
    std::atomic<juce::int64> position { 0 }; // samples; written by the audio thread
};

} // namespace mk::orlo::host
