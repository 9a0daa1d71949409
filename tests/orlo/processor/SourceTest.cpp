// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests what the processor passes on to the analysis.
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "tests/support/MessageLoop.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace mk::orlo::test
{
namespace
{

/** A processor whose analysis runs. */
class SourceTest : public testing::Test
{
protected:
    SourceTest()
    {
        processor.prepareToPlay (48000.0, 512);
        processor.setAnalysisSuspended (false);
    }

    /** Chooses a source, plays a block and returns the last of its frames, of which there are four. */
    void analyse (Source source, juce::AudioBuffer<float>& buffer, Frame& last)
    {
        processor.getUIView().setSource (source);
        processor.updatePictureSettings();
        worker.setMagnitudeThreshold (0.0f);
        worker.setHop (buffer.getNumSamples() / 4);
        juce::MidiBuffer midi;
        processor.processBlock (buffer, midi);
        ASSERT_TRUE (pumpUntil ([this] { return worker.getNumFramesReady() == 4; }));

        while (worker.popFrame (last))
        {
        }
    }

    AudioPluginAudioProcessor processor;
    FFTProcessor& worker = processor.getFftProcessor();
    Frame frame;
};

/** A tone, and half as loud and opposite in the right channel. */
class EachSourceTest : public SourceTest, public testing::WithParamInterface<std::tuple<Source, float, float>>
{
};

TEST_P (EachSourceTest, IsWhatTheAnalysisHears)
{
    const auto [source, first, second] = GetParam();
    const auto size = 8192;
    const auto tone = makeSine (48000.0 * 100 / 2048, 1.0f, size, 48000.0);
    juce::AudioBuffer<float> buffer (2, size);
    buffer.copyFrom (0, 0, tone.data(), size);
    buffer.copyFrom (1, 0, tone.data(), size, -0.5f);
    const juce::AudioBuffer<float> original (buffer);
    analyse (source, buffer, frame);

    for (int channel = 0; channel < 2; ++channel)
        EXPECT_TRUE (std::equal (original.getReadPointer (channel),
                                 original.getReadPointer (channel) + size,
                                 buffer.getReadPointer (channel)));

    EXPECT_NEAR (frame[100].magnitude, first, 1.0e-3f);
    ASSERT_EQ (frame.others.size(), second > 0.0f ? 1u : 0u);

    for (const auto& other : frame.others)
        EXPECT_NEAR (other[100].magnitude, second, 1.0e-3f);
}

INSTANTIATE_TEST_SUITE_P (All,
                          EachSourceTest,
                          testing::Values (std::tuple { Source::mean, 0.25f, 0.0f },
                                           std::tuple { Source::left, 1.0f, 0.0f },
                                           std::tuple { Source::right, 0.5f, 0.0f },
                                           std::tuple { Source::mid, 0.25f, 0.0f },
                                           std::tuple { Source::side, 0.75f, 0.0f },
                                           std::tuple { Source::loudest, 1.0f, 0.5f }));

TEST_F (SourceTest, OtherThanTheMeanShowsOppositeChannels)
{
    const auto size = 8192;
    const auto noise = makeReferenceSignal ("noise", size, 48000.0);
    juce::AudioBuffer<float> buffer (2, size);
    buffer.copyFrom (0, 0, noise.data(), size);
    buffer.copyFrom (1, 0, noise.data(), size, -1.0f);

    for (const auto source : { Source::left, Source::right, Source::side, Source::loudest, Source::mean, Source::mid })
    {
        analyse (source, buffer, frame);
        const auto isSilent = source == Source::mean || source == Source::mid;
        EXPECT_EQ (*std::max_element (frame.magnitudes.begin(), frame.magnitudes.end()) > 0.0f, ! isSilent)
            << sourceNames[size_t (source)];
    }
}

TEST_F (SourceTest, IsInTheSessionButNotInPresets)
{
    processor.getUIView().setSource (Source::side);
    juce::MemoryBlock session;
    processor.getStateInformation (session);
    EXPECT_FALSE (processor.getStateXml (false)->toString().contains ("Side"));

    AudioPluginAudioProcessor other;
    EXPECT_EQ (other.getUIView().getSource(), Source::mean);
    other.setStateInformation (session.getData(), int (session.getSize()));
    EXPECT_EQ (other.getUIView().getSource(), Source::side);

    other.getUIView().source = "Centre";
    EXPECT_EQ (other.getUIView().getSource(), Source::mean);
}

TEST_F (SourceTest, OfOneChannelIsThatChannel)
{
    ASSERT_TRUE (processor.setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    processor.prepareToPlay (48000.0, 512);
    const auto size = 8192;
    const auto tone = makeSine (48000.0 * 100 / 2048, 1.0f, size, 48000.0);
    juce::AudioBuffer<float> buffer (1, size);
    buffer.copyFrom (0, 0, tone.data(), size);

    for (const auto source : { Source::right, Source::side, Source::loudest })
    {
        analyse (source, buffer, frame);
        EXPECT_NEAR (frame[100].magnitude, 1.0f, 1.0e-3f);
        EXPECT_TRUE (frame.others.empty());
    }
}

} // namespace
} // namespace mk::orlo::test
