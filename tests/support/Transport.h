// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::test
{

/** Lets the host play or stop through one block of silence. */
inline void runBlock (juce::AudioProcessor& processor, bool isPlaying)
{
    struct PlayHead final : juce::AudioPlayHead
    {
        juce::Optional<PositionInfo> getPosition() const override
        {
            PositionInfo info;
            info.setIsPlaying (playing);
            return info;
        }

        bool playing = false;
    } playHead;

    playHead.playing = isPlaying;
    juce::AudioBuffer<float> buffer (2, 64);
    juce::MidiBuffer midi;
    buffer.clear();
    processor.setPlayHead (&playHead);
    processor.processBlock (buffer, midi);
    processor.setPlayHead (nullptr);
}

} // namespace mk::orlo::test
