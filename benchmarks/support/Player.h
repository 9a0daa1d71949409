// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tools/orlo-host/DemoSignal.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <utility>
#include <vector>

namespace mk::orlo::bench
{

/** Passes the audio through and does nothing else. */
class PlainProcessor final : public juce::AudioProcessor
{
public:
    const juce::String getName() const override { return {}; }
    void prepareToPlay (double, int) override {}
    void releaseResources() override {}
    void processBlock (juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}
    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    juce::AudioProcessorEditor* createEditor() override { return nullptr; }
    bool hasEditor() const override { return false; }
    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    const juce::String getProgramName (int) override { return {}; }
    void changeProgramName (int, const juce::String&) override {}
    void getStateInformation (juce::MemoryBlock&) override {}
    void setStateInformation (const void*, int) override {}
};

/** Plays the demo signal through each of the processors in real time on a thread of its own, as a host does. They must
    outlive the player. */
class Player final : public juce::Thread
{
public:
    Player (std::vector<juce::AudioProcessor*> processorsToFeed, double rate, int samplesPerBlock)
        : juce::Thread ("audio"),
          processors (std::move (processorsToFeed)),
          sampleRate (rate),
          blockSize (samplesPerBlock),
          signal (host::makeDemoSignal (rate))
    {
        startThread (Priority::highest);
    }

    ~Player() override { stopThread (1000); }

private:
    void run() override
    {
        juce::AudioBuffer<float> block (2, blockSize);
        juce::MidiBuffer midi;
        auto due = juce::Time::getMillisecondCounterHiRes();

        for (int position = 0; ! threadShouldExit(); position += blockSize)
        {
            position = position + blockSize <= signal.getNumSamples() ? position : 0;

            for (auto* const processor : processors)
            {
                for (int channel = 0; channel < 2; ++channel)
                    block.copyFrom (channel, 0, signal, channel, position, blockSize);

                processor->processBlock (block, midi);
            }

            due += blockSize * 1000.0 / sampleRate;

            if (const auto left = due - juce::Time::getMillisecondCounterHiRes(); left > 0.5)
                wait (left);
        }
    }

    const std::vector<juce::AudioProcessor*> processors;
    const double sampleRate;
    const int blockSize;
    const juce::AudioBuffer<float> signal;
};

} // namespace mk::orlo::bench
