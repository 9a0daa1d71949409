// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginPlayer.h"

namespace mk::orlo::host
{
namespace
{
constexpr int readAheadSamples = 65536;
constexpr int trackChannels = 2;
} // namespace

PluginPlayer::PluginPlayer (juce::AudioPluginInstance& pluginToPlayThrough, Track trackToPlay)
    : plugin (pluginToPlayThrough), track (std::move (trackToPlay))
{
    if (track.isFromDisk)
        readAheadThread.startThread();

    transport.setSource (track.source.get(),
                         track.isFromDisk ? readAheadSamples : 0,
                         track.isFromDisk ? &readAheadThread : nullptr,
                         track.sampleRate,
                         trackChannels);
    plugin.setPlayHead (&playHead);
}

PluginPlayer::~PluginPlayer()
{
    release();
    plugin.setPlayHead (nullptr);
    transport.setSource (nullptr);
}

void PluginPlayer::prepare (double sampleRate, int maxBlockSize)
{
    release();

    plugin.setRateAndBufferSizeDetails (sampleRate, maxBlockSize);
    plugin.prepareToPlay (sampleRate, maxBlockSize);

    buffer.setSize (juce::jmax (trackChannels, plugin.getTotalNumInputChannels(), plugin.getTotalNumOutputChannels()),
                    maxBlockSize);

    track.source->setNextReadPosition (0);
    playHead.restart (sampleRate, juce::roundToInt (double (track.length) * sampleRate / track.sampleRate));
    transport.prepareToPlay (maxBlockSize, sampleRate);
    transport.start();
    prepared = true;
}

void PluginPlayer::process (float* const* outputs, int numOutputs, int numSamples)
{
    // A sound card may ask for more than it announced.
    for (int start = 0; start < numSamples; start += buffer.getNumSamples())
    {
        const auto count = juce::jmin (buffer.getNumSamples(), numSamples - start);
        processBlock (count);

        for (int channel = 0; channel < numOutputs; ++channel)
            if (channel < plugin.getTotalNumOutputChannels())
                juce::FloatVectorOperations::copy (outputs[channel] + start, buffer.getReadPointer (channel), count);
            else
                juce::FloatVectorOperations::clear (outputs[channel] + start, count);
    }
}

void PluginPlayer::processBlock (int numSamples)
{
    juce::AudioBuffer<float> block (buffer.getArrayOfWritePointers(), buffer.getNumChannels(), numSamples);
    transport.getNextAudioBlock (juce::AudioSourceChannelInfo (block));

    {
        const juce::ScopedLock callbackLock (plugin.getCallbackLock());

        if (plugin.isSuspended())
            block.clear();
        else
            plugin.processBlock (block, midi);
    }

    midi.clear();
    playHead.advance (numSamples);
}

void PluginPlayer::release()
{
    if (! std::exchange (prepared, false))
        return;

    plugin.releaseResources();
    transport.releaseResources();
}

} // namespace mk::orlo::host
