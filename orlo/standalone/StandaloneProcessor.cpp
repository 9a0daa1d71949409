// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StandaloneProcessor.h"

namespace mk::orlo
{

void StandaloneProcessor::prepareToPlay (double rate, int maxBlockSize)
{
    if (audio != nullptr)
        audio->prepare (rate);

    AudioPluginAudioProcessor::prepareToPlay (rate, maxBlockSize);
}

void StandaloneProcessor::processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    if (audio != nullptr)
        audio->fill (buffer);

    AudioPluginAudioProcessor::processBlock (buffer, midi);

    if (audio == nullptr)
        buffer.clear();
}

} // namespace mk::orlo
