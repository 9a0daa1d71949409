// SPDX-License-Identifier: AGPL-3.0-or-later
// The time of a block on the audio thread, compared with the same work written by hand.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "benchmarks/support/Measure.h"

#include <cstring>

namespace mk::orlo::bench
{
namespace
{

constexpr int blockSize = 512;

/** A processor in stereo, with its analysis on or suspended. */
struct Plugin
{
    explicit Plugin (bool suspended)
    {
        processor.prepareToPlay (48000.0, blockSize);
        processor.setAnalysisSuspended (suspended);
        buffer.clear();
    }

    AudioPluginAudioProcessor processor;
    juce::AudioBuffer<float> buffer { 2, blockSize };
    juce::MidiBuffer midi;
};

/** A thread that waits as the worker does, but does nothing when woken. */
struct Sleeper final : juce::Thread
{
    Sleeper() : juce::Thread ("sleeper") { startThread (juce::Thread::Priority::highest); }
    ~Sleeper() override { stopThread (1000); }

    void run() override
    {
        while (! threadShouldExit())
            wait (-1.0);
    }
};

void compareAnalysing()
{
    auto plugin = std::make_shared<Plugin> (false);
    auto sleeper = std::make_shared<Sleeper>();
    auto ring = std::make_shared<std::vector<float>> (163840);
    auto mono = std::make_shared<std::vector<float>> (blockSize);

    compare (
        "processBlock, stereo 512, analysing",
        [plugin] { plugin->processor.processBlock (plugin->buffer, plugin->midi); },
        [plugin, sleeper, ring, mono, position = size_t (0)]() mutable
        {
            using Vector = juce::FloatVectorOperations;
            Vector::copy (mono->data(), plugin->buffer.getReadPointer (0), blockSize);
            Vector::add (mono->data(), plugin->buffer.getReadPointer (1), blockSize);
            Vector::multiply (mono->data(), 0.5f, blockSize);
            std::memcpy (ring->data() + position, mono->data(), blockSize * sizeof (float));
            position = (position + blockSize) % ring->size();
            sleeper->notify();
        },
        1.2);
}

void compareSuspended()
{
    auto plugin = std::make_shared<Plugin> (true);
    auto copy = std::make_shared<juce::AudioBuffer<float>> (2, blockSize);

    compare (
        "processBlock, stereo 512, suspended",
        [plugin] { plugin->processor.processBlock (plugin->buffer, plugin->midi); },
        [plugin, copy]
        {
            for (int channel = 0; channel < 2; ++channel)
                copy->copyFrom (channel, 0, plugin->buffer, channel, 0, blockSize);

            benchmark::ClobberMemory();
        },
        1.5);
}

} // namespace

void registerBenchmarks()
{
    compareAnalysing();
    compareSuspended();
}

} // namespace mk::orlo::bench
