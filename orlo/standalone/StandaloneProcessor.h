// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LoopedAudio.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"

namespace mk::orlo
{

/** The processor of the standalone program: it shows the sound input in silence, as playing it back would feed it into
    a microphone again, or plays a piece of audio. */
class StandaloneProcessor : public AudioPluginAudioProcessor
{
public:
    using AudioPluginAudioProcessor::AudioPluginAudioProcessor;

    /** Sets what all instances made later play; null for the sound input. The audio must outlive them, and only one
        instance at a time can play. [message thread] */
    static void setAudio (LoopedAudio* audioToPlay) noexcept { nextAudio = audioToPlay; }

    void prepareToPlay (double rate, int maxBlockSize) override;
    void processBlock (juce::AudioBuffer<float>&, juce::MidiBuffer&) override;
    using juce::AudioProcessor::processBlock;

private:
    static inline LoopedAudio* nextAudio = nullptr; // [message thread]
    LoopedAudio* const audio = nextAudio;
};

} // namespace mk::orlo
