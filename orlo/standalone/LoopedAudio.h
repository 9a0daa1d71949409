// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_formats/juce_audio_formats.h>

namespace mk::orlo
{

/** A piece of stereo audio in memory that repeats. */
class LoopedAudio
{
public:
    /** The samples' rate is in hertz; one or two channels. */
    LoopedAudio (juce::AudioBuffer<float> samples, double sampleRate);

    /** Reads a whole file of any format that JUCE reads; the first two channels of it. Null, and a sentence in error,
        if it is not there, is no audio, is empty or does not fit into the memory. [message thread, blocks] */
    [[nodiscard]] static std::unique_ptr<LoopedAudio> read (const juce::File& file, juce::String& error);

    /** Hertz. At this rate the audio is not resampled. */
    [[nodiscard]] double getSampleRate() const noexcept { return originalRate; }

    /** Begins anew at another rate, in hertz. Allocates. [while no audio runs] */
    void prepare (double rate);

    /** Replaces all channels by the next samples. A single channel goes to all of them. [audio thread, after prepare();
        wait-free] */
    void fill (juce::AudioBuffer<float>& block) noexcept;

private:
    const juce::AudioBuffer<float> original;
    const double originalRate;
    juce::AudioBuffer<float> resampled; // empty at the original rate
    bool isResampled = false;
    int position = 0;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LoopedAudio)
};

} // namespace mk::orlo
