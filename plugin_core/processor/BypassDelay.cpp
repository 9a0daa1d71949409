// SPDX-License-Identifier: AGPL-3.0-or-later
#include "BypassDelay.h"

namespace mk::pluginCore
{

void BypassDelay::prepare (const juce::dsp::ProcessSpec& spec, int latency)
{
    const auto wanted = juce::jmax (smallestDelay, latency) + margin;

    if (line.getMaximumDelayInSamples() < wanted)
        line.setMaximumDelayInSamples (wanted);

    numChannels = int (spec.numChannels);
    line.prepare (spec);
    line.reset();
}

void BypassDelay::process (juce::AudioBuffer<float>& buffer, int latency) noexcept
{
    const auto delay = juce::jlimit (0, line.getMaximumDelayInSamples() - margin, latency);

    if (juce::roundToInt (line.getDelay()) != delay)
    {
        // After a latency change, the samples in the line do not directly precede the new audio.
        line.reset();
        line.setDelay (float (delay));
    }

    if (delay == 0)
        return;

    for (int channel = 0; channel < juce::jmin (numChannels, buffer.getNumChannels()); ++channel)
    {
        auto* const samples = buffer.getWritePointer (channel);

        for (int i = 0; i < buffer.getNumSamples(); ++i)
        {
            line.pushSample (channel, samples[i]);
            samples[i] = line.popSample (channel);
        }
    }
}

} // namespace mk::pluginCore
