// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/Source.h"

#include <juce_audio_basics/juce_audio_basics.h>

namespace mk::orlo
{

/** Takes out of a block what is to be analysed. [audio thread] */
class SourceMixer
{
public:
    /** One or two streams of samples, valid until the block or the mixer changes. */
    struct Streams
    {
        const float* first;
        const float* second; /**< Null if there is one only. */
    };

    /** [host or message thread, while no audio runs] Makes room for blocks. Allocates. */
    void prepare (int maxBlockSize);

    /** What is analysed of so many channels: one channel is its own mean. */
    [[nodiscard]] static Source findSource (Source wanted, int numChannels) noexcept
    {
        return numChannels > 1 ? wanted : Source::mean;
    }

    /** Every source of a block but the mean needs two channels. Allocates only if the block is larger than those that
        were prepared for. */
    [[nodiscard]] Streams mix (const juce::AudioBuffer<float>& block, Source source) noexcept;

private:
    [[nodiscard]] const float* mixMean (const juce::AudioBuffer<float>& block) noexcept;
    [[nodiscard]] const float* mixSide (const juce::AudioBuffer<float>& block) noexcept;

    juce::AudioBuffer<float> mixed { 1, 0 };
};

} // namespace mk::orlo
