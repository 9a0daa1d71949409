// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/standalone/LoopedAudio.h"

#include "tests/support/Signals.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;

/** Channel 0 counts 0, 1, 2...; channel 1 counts -0, -1, -2... */
[[nodiscard]] juce::AudioBuffer<float> makeCounts (int numChannels, int length)
{
    juce::AudioBuffer<float> counts (numChannels, length);

    for (int channel = 0; channel < numChannels; ++channel)
        for (int i = 0; i < length; ++i)
            counts.setSample (channel, i, channel == 0 ? float (i) : -float (i));

    return counts;
}

[[nodiscard]] std::vector<float> getSamples (const juce::AudioBuffer<float>& buffer, int channel)
{
    return { buffer.getReadPointer (channel), buffer.getReadPointer (channel) + buffer.getNumSamples() };
}

TEST (LoopedAudio, BeginsAgainAfterItsEndEvenSeveralTimesInABlock)
{
    LoopedAudio audio (makeCounts (2, 3), rate);
    audio.prepare (rate);
    juce::AudioBuffer<float> block (2, 8);
    audio.fill (block);
    EXPECT_EQ (getSamples (block, 0), (std::vector<float> { 0, 1, 2, 0, 1, 2, 0, 1 }));
    EXPECT_EQ (getSamples (block, 1), (std::vector<float> { 0, -1, -2, 0, -1, -2, 0, -1 }));

    audio.fill (block);
    EXPECT_EQ (getSamples (block, 0), (std::vector<float> { 2, 0, 1, 2, 0, 1, 2, 0 }));

    audio.prepare (rate);
    audio.fill (block);
    EXPECT_EQ (block.getSample (0, 0), 0.0f) << "prepare() begins anew";
}

TEST (LoopedAudio, ASingleChannelIsHeardOnBothSides)
{
    LoopedAudio audio (makeCounts (1, 4), rate);
    audio.prepare (rate);
    juce::AudioBuffer<float> block (2, 4);
    audio.fill (block);
    EXPECT_EQ (getSamples (block, 1), (std::vector<float> { 0, 1, 2, 3 }));
}

TEST (LoopedAudio, KeepsItsPitchAtAnotherRate)
{
    constexpr auto hz = 1000.0;
    const auto sine = makeSine (hz, 0.5f, int (rate), rate);
    juce::AudioBuffer<float> samples (1, int (sine.size()));
    samples.copyFrom (0, 0, sine.data(), int (sine.size()));

    LoopedAudio audio (std::move (samples), rate);
    audio.prepare (48000.0);
    juce::AudioBuffer<float> block (1, 24000);
    audio.fill (block);

    // The interpolator rings before the first sample.
    constexpr auto settled = 960;
    auto crossings = 0;

    for (int i = settled; i < block.getNumSamples(); ++i)
        crossings += block.getSample (0, i - 1) < 0.0f && block.getSample (0, i) >= 0.0f ? 1 : 0;

    EXPECT_NEAR (crossings, 480, 1);
    EXPECT_NEAR (block.getMagnitude (0, settled, 20000), 0.5f, 0.01f);
}

TEST (LoopedAudio, ReadsAFileThatThisProgramHasWritten)
{
    const TemporaryFolder folder;
    const auto file = folder.get().getChildFile ("counts.wav");
    const auto counts = makeCounts (2, 5);

    {
        juce::WavAudioFormat format;
        auto stream = std::make_unique<juce::FileOutputStream> (file);
        const std::unique_ptr<juce::AudioFormatWriter> writer (
            format.createWriterFor (stream.release(), rate, 2, 32, {}, 0));
        ASSERT_NE (writer, nullptr);
        ASSERT_TRUE (writer->writeFromAudioSampleBuffer (counts, 0, 5));
    }

    juce::String error;
    const auto audio = LoopedAudio::read (file, error);
    ASSERT_NE (audio, nullptr) << error;
    EXPECT_EQ (audio->getSampleRate(), rate);
    audio->prepare (rate);
    juce::AudioBuffer<float> block (2, 5);
    audio->fill (block);
    EXPECT_EQ (getSamples (block, 1), getSamples (counts, 1));
}

TEST (LoopedAudio, SaysWhyAFileCannotBePlayed)
{
    const TemporaryFolder folder;
    const auto text = folder.get().getChildFile ("notes.wav");
    text.replaceWithText ("no audio");

    juce::String error;
    EXPECT_EQ (LoopedAudio::read (text, error), nullptr);
    EXPECT_EQ (error, text.getFullPathName() + " is no audio that can be read");

    error.clear();
    const auto missing = folder.get().getChildFile ("missing.wav");
    EXPECT_EQ (LoopedAudio::read (missing, error), nullptr);
    EXPECT_EQ (error, "there is no file " + missing.getFullPathName());
}
} // namespace
} // namespace mk::orlo::test
