// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <atomic>
#include <vector>

namespace mk::orlo::test
{

/** Passes stereo through and keeps a record of what the host does with it. */
class FakePlugin final : public juce::AudioPluginInstance
{
public:
    FakePlugin()
        : juce::AudioPluginInstance (BusesProperties()
                                         .withInput ("Input", juce::AudioChannelSet::stereo())
                                         .withOutput ("Output", juce::AudioChannelSet::stereo()))
    {
    }

    struct Block
    {
        int size;
        juce::int64 time;
        bool playing;
    };

    std::vector<Block> blocks;        // written by the audio thread
    std::atomic<int> numBlocks { 0 }; // their number, for other threads to wait on
    std::vector<juce::String> calls;

    void prepareToPlay (double rate, int size) override
    {
        calls.push_back ("prepare " + juce::String (juce::roundToInt (rate)) + " " + juce::String (size));
    }

    void releaseResources() override { calls.push_back ("release"); }

    void processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer&) override
    {
        const auto position = getPlayHead()->getPosition();
        blocks.push_back ({ buffer.getNumSamples(), *position->getTimeInSamples(), position->getIsPlaying() });
        numBlocks.store (int (blocks.size()), std::memory_order_release);
    }

    using juce::AudioPluginInstance::processBlock;

    void fillInPluginDescription (juce::PluginDescription&) const override {}
    const juce::String getName() const override { return "Fake"; }
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

} // namespace mk::orlo::test
