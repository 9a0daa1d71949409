// SPDX-License-Identifier: AGPL-3.0-or-later
// The time of a block on the audio thread, compared with the same work written by hand.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "benchmarks/support/Measure.h"

#include <array>
#include <chrono>
#include <cstring>
#include <thread>

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

    // A frame for every block, so that the worker empties the ring and is soon asleep again.
    plugin->processor.getFftProcessor().setHop (blockSize);

    // A host calls every ten milliseconds, when the thread to wake has long gone to sleep. Calls in a row would find it
    // awake at times, and at others have to wait for it.
    const auto letThreadsSleep = [] { std::this_thread::sleep_for (std::chrono::microseconds (100)); };

    compare ("processBlock, stereo 512, analysing",
             { letThreadsSleep, [plugin] { plugin->processor.processBlock (plugin->buffer, plugin->midi); } },
             { letThreadsSleep,
               [plugin, sleeper, ring, mono, position = size_t (0)]() mutable
               {
                   using Vector = juce::FloatVectorOperations;
                   Vector::copy (mono->data(), plugin->buffer.getReadPointer (0), blockSize);
                   Vector::add (mono->data(), plugin->buffer.getReadPointer (1), blockSize);
                   Vector::multiply (mono->data(), 0.5f, blockSize);
                   std::memcpy (ring->data() + position, mono->data(), blockSize * sizeof (float));
                   position = (position + blockSize) % ring->size();
                   sleeper->notify();
               } },
             1.2);
}

void compareKeeping()
{
    // What a window that keeps the sound adds to each block: 300 nanoseconds at most are wanted.
    measure ("keeping the sound of a block, stereo 512",
             [sound = std::make_shared<KeptSound> (48000.0, 2, 60 * 48000),
              block = std::make_shared<std::vector<float>> (blockSize)]
             {
                 const std::array<const float*, 2> channels { block->data(), block->data() };
                 sound->push (channels.data(), 2, blockSize, {});
             });

    auto keeping = std::make_shared<Plugin> (false), other = std::make_shared<Plugin> (false);
    keeping->processor.setSoundKept (true);

    compare (
        "processBlock, stereo 512, keeping the sound or not",
        [keeping] { keeping->processor.processBlock (keeping->buffer, keeping->midi); },
        [other] { other->processor.processBlock (other->buffer, other->midi); },
        1.5);
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
    compareKeeping();
    compareSuspended();
}

} // namespace mk::orlo::bench
