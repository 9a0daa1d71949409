// SPDX-License-Identifier: AGPL-3.0-or-later
// Runs all threads of the product while every parameter changes. Most useful under ThreadSanitizer.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "tests/support/MessageLoop.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

namespace mk::orlo::test
{
namespace
{

using Clock = std::chrono::steady_clock;

/** Processes blocks of changing sizes as fast as possible, on the audio thread. */
void playAudio (AudioPluginAudioProcessor& processor, const std::atomic<bool>& done, std::atomic<int>& numBlocks)
{
    const auto noise = makeReferenceSignal ("noise", 8192, 44100.0);
    juce::AudioBuffer<float> buffer (2, 4096);
    juce::MidiBuffer midi;

    for (int i = 0; ! done.load (std::memory_order_acquire); ++i)
    {
        buffer.setSize (2, 1 + int ((unsigned (i) * 97u) % 4096u), false, false, true); // wraps, unlike an int

        for (int channel = 0; channel < 2; ++channel)
            buffer.copyFrom (channel, 0, noise.data() + 100 * channel, buffer.getNumSamples());

        processor.processBlock (buffer, midi);
        numBlocks.fetch_add (1, std::memory_order_relaxed);
    }
}

/** Automates every parameter as a host does, on its own thread. */
void automate (AudioPluginAudioProcessor& processor, const std::atomic<bool>& done)
{
    juce::Random random (1);

    while (! done.load (std::memory_order_acquire))
    {
        const auto& parameters = processor.getParameters();
        auto& parameter = *parameters[random.nextInt (parameters.size())];

        // Freeze is mostly off, so that the picture keeps moving.
        const auto isFreeze = parameter.getName (20).containsIgnoreCase ("freeze");
        parameter.setValueNotifyingHost (isFreeze && random.nextInt (4) != 0 ? 0.0f : random.nextFloat());
        std::this_thread::sleep_for (std::chrono::microseconds (500));
    }
}

TEST (AllThreads, RunWhileEverythingChanges)
{
    AudioPluginAudioProcessor processor;
    auto& builder = processor.getImageBuilder();
    processor.prepareToPlay (44100.0, 4096);
    processor.getFftProcessor().setHop (163);
    builder.setRequestedSize (300, 200);
    builder.startThread();
    processor.setAnalysisSuspended (false);

    std::atomic<bool> done { false };
    std::atomic<int> numBlocks { 0 };
    std::thread audio ([&] { playAudio (processor, done, numBlocks); });
    std::thread host ([&] { automate (processor, done); });

    // This thread acts as the view: it ticks, resizes, suspends, and reads the picture and the scale.
    const auto end = Clock::now() + std::chrono::seconds (hasThreadSanitizer ? 20 : 5);
    int numPictures = 0;

    for (int i = 0; Clock::now() < end; ++i)
    {
        processor.updatePictureSettings();
        processor.getFrameClock().tick (float (i % 7) * 0.7f, builder.isColumnReady());
        builder.notify();
        processor.getFftProcessor().setHop (40 + (i * 31) % 700);
        builder.setFramesPerColumn (1 + i % 5);
        builder.setColourMap (i % 46);

        if (i % 10 == 0)
            processor.getUIView().setSource (Source (i / 10 % 6));

        if (i % 50 == 0)
            builder.setRequestedSize (100 + (i * 13) % 500, 1 + (i * 7) % 300);

        if (i % 200 == 199)
        {
            processor.setAnalysisSuspended (true);
            processor.setAnalysisSuspended (false);

            // Hosts do not prepare a processor while it plays, so only the worker's rate changes.
            processor.getFftProcessor().prepareToPlay (i % 400 == 199 ? 48000.0 : 44100.0);
        }

        numPictures += builder.fetchColumns().isEmpty() ? 0 : 1;

        EXPECT_TRUE (std::isfinite (builder.getFrequencyScale().frequencyForPosition (0.3f)));
        pumpPending();
        std::this_thread::sleep_for (std::chrono::milliseconds (5));
    }

    done.store (true, std::memory_order_release);
    audio.join();
    host.join();
    EXPECT_TRUE (builder.stopThread (1000));
    EXPECT_GT (numBlocks.load(), 1000);
    EXPECT_GT (numPictures, 50);
}

} // namespace
} // namespace mk::orlo::test
