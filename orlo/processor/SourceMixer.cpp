// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SourceMixer.h"

namespace mk::orlo
{

void SourceMixer::prepare (int maxBlockSize) { mixed.setSize (1, juce::jmax (0, maxBlockSize), true, false, true); }

SourceMixer::Streams SourceMixer::mix (const juce::AudioBuffer<float>& block, Source source) noexcept
{
    switch (source)
    {
        case Source::left: return { block.getReadPointer (0), nullptr };
        case Source::right: return { block.getReadPointer (1), nullptr };
        case Source::side: return { mixSide (block), nullptr };
        case Source::loudest: return { block.getReadPointer (0), block.getReadPointer (1) };
        case Source::mean:
        case Source::mid: break;
    }

    return { mixMean (block), nullptr };
}

const float* SourceMixer::mixMean (const juce::AudioBuffer<float>& block) noexcept
{
    const auto numChannels = block.getNumChannels();
    const auto numSamples = block.getNumSamples();

    if (numChannels == 1)
        return block.getReadPointer (0);

    // Allocates only if the host sends a larger block than it announced.
    mixed.setSize (1, numSamples, false, false, true);
    mixed.copyFrom (0, 0, block, 0, 0, numSamples);

    for (int channel = 1; channel < numChannels; ++channel)
        mixed.addFrom (0, 0, block, channel, 0, numSamples);

    mixed.applyGain (1.0f / float (numChannels));
    return mixed.getReadPointer (0);
}

const float* SourceMixer::mixSide (const juce::AudioBuffer<float>& block) noexcept
{
    const auto numSamples = block.getNumSamples();
    mixed.setSize (1, numSamples, false, false, true);
    mixed.copyFrom (0, 0, block, 0, 0, numSamples);
    mixed.addFrom (0, 0, block, 1, 0, numSamples, -1.0f);
    mixed.applyGain (0.5f);
    return mixed.getReadPointer (0);
}

} // namespace mk::orlo
