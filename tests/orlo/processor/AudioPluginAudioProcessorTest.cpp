// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include "orlo/parameters/Params.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::orlo::test
{
namespace
{

struct TestPlayHead final : juce::AudioPlayHead
{
    juce::Optional<PositionInfo> getPosition() const override
    {
        if (! hasPosition)
            return {};

        PositionInfo info;
        info.setIsPlaying (playing);
        return info;
    }

    bool hasPosition = true;
    bool playing = false;
};

/** A processor whose analysis runs. Its worker has no hop, so pushed samples stay in the ring and can be counted. */
class AudioPluginAudioProcessorTest : public testing::Test
{
protected:
    AudioPluginAudioProcessorTest()
    {
        processor.prepareToPlay (48000.0, 512);
        processor.setAnalysisSuspended (false);
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    void process (int numSamples = 512)
    {
        juce::AudioBuffer<float> buffer (2, numSamples);
        buffer.clear();
        process (buffer);
    }

    void process (juce::AudioBuffer<float>& buffer) { processor.processBlock (buffer, midi); }

    [[nodiscard]] int numAnalysed() const { return worker.getNumSamplesReady(); }

    AudioPluginAudioProcessor processor;
    FFTProcessor& worker = processor.getFftProcessor();
    juce::MidiBuffer midi;
};

[[nodiscard]] juce::AudioBuffer<float> makeNoise (int numChannels, int numSamples)
{
    juce::AudioBuffer<float> buffer (numChannels, numSamples);
    const auto noise = makeReferenceSignal ("noise", numChannels * numSamples, 48000.0);

    for (int channel = 0; channel < numChannels && numSamples > 0; ++channel)
        buffer.copyFrom (channel, 0, noise.data() + channel * numSamples, numSamples);

    return buffer;
}

[[nodiscard]] bool isEqual (const juce::AudioBuffer<float>& a, const juce::AudioBuffer<float>& b)
{
    for (int channel = 0; channel < a.getNumChannels(); ++channel)
        if (! std::equal (
                a.getReadPointer (channel), a.getReadPointer (channel) + a.getNumSamples(), b.getReadPointer (channel)))
            return false;

    return a.getNumChannels() == b.getNumChannels();
}

TEST_F (AudioPluginAudioProcessorTest, AnswersTheHost)
{
    EXPECT_EQ (processor.getName(), "Orlo");
    EXPECT_EQ (processor.getTailLengthSeconds(), 0.0);
    EXPECT_FALSE (processor.acceptsMidi() || processor.producesMidi() || processor.isMidiEffect());
    EXPECT_TRUE (AudioPluginAudioProcessor (createEditor).hasEditor());
    EXPECT_FALSE (processor.hasEditor()) << "this one was made without a window";
    EXPECT_EQ (processor.getNumPrograms(), 1);
    EXPECT_EQ (processor.getCurrentProgram(), 0);
    EXPECT_TRUE (processor.getProgramName (0).isEmpty());
    EXPECT_EQ (processor.getLatencySamples(), 0);
    EXPECT_FALSE (processor.supportsDoublePrecisionProcessing());
    EXPECT_EQ (processor.getReleaseYear(), 2025);
    EXPECT_EQ (processor.getReleaseNotesUrl(), "https://morlek.example/releaseNotes/orlo");
    EXPECT_EQ (processor.getProductUrl(), "https://morlek.example/product/orlo");
    EXPECT_TRUE (processor.getVersionText().contains (" - v1.2.1"));
    EXPECT_EQ (processor.getBus (true, 0)->getName(), "Input");
    EXPECT_EQ (processor.getBus (false, 0)->getName(), "Output");
}

TEST_F (AudioPluginAudioProcessorTest, TakesMonoOrStereoWithAsManyChannelsInAsOut)
{
    using Set = juce::AudioChannelSet;
    const auto supports = [this] (const Set& in, const Set& out) {
        return processor.checkBusesLayoutSupported ({ { in }, { out } });
    };

    EXPECT_TRUE (supports (Set::mono(), Set::mono()));
    EXPECT_TRUE (supports (Set::stereo(), Set::stereo()));
    EXPECT_FALSE (supports (Set::mono(), Set::stereo()));
    EXPECT_FALSE (supports (Set::stereo(), Set::mono()));
    EXPECT_FALSE (supports (Set::create5point1(), Set::create5point1()));
    EXPECT_FALSE (supports (Set::disabled(), Set::disabled()));
}

TEST_F (AudioPluginAudioProcessorTest, LeavesTheAudioUnchangedOnEveryPath)
{
    for (const auto suspended : { true, false })
        for (const auto numSamples : { 0, 1, 64, 512, 8192 })
        {
            processor.setAnalysisSuspended (suspended);
            const auto original = makeNoise (2, numSamples);
            auto buffer = original;
            process (buffer);
            EXPECT_TRUE (isEqual (buffer, original));
            processor.processBlockBypassed (buffer, midi);
            EXPECT_TRUE (isEqual (buffer, original));
        }
}

TEST_F (AudioPluginAudioProcessorTest, StartsSuspendedAndAnalysesOnlyWhileItIsNot)
{
    AudioPluginAudioProcessor fresh;
    fresh.prepareToPlay (48000.0, 512);
    auto buffer = makeNoise (2, 512);
    fresh.processBlock (buffer, midi);
    EXPECT_EQ (fresh.getFftProcessor().getNumSamplesReady(), 0);

    process();
    EXPECT_EQ (numAnalysed(), 512);
    processor.setAnalysisSuspended (true);
    process();
    EXPECT_EQ (numAnalysed(), 512);

    // Resuming drops the old samples.
    processor.setAnalysisSuspended (false);
    EXPECT_EQ (numAnalysed(), 0);
}

TEST_F (AudioPluginAudioProcessorTest, ABypassedBlockIsNotAnalysed)
{
    auto buffer = makeNoise (2, 512);
    processor.processBlockBypassed (buffer, midi);
    EXPECT_EQ (numAnalysed(), 0);
}

TEST_F (AudioPluginAudioProcessorTest, AnalysesTheMeanOfAllChannels)
{
    worker.setHop (2048);

    // 0.5 on the one channel and 0.25 on the other have a mean of 0.375.
    const auto size = 8192;
    const auto tone = makeSine (48000.0 * 100 / 2048, 0.5f, size, 48000.0);
    juce::AudioBuffer<float> buffer (2, size);
    buffer.copyFrom (0, 0, tone.data(), size);
    buffer.copyFrom (1, 0, tone.data(), size, 0.5f);
    process (buffer);
    ASSERT_TRUE (pumpUntil ([this] { return worker.getNumFramesReady() == 4; }));

    Frame frame;

    while (worker.popFrame (frame))
    {
    }

    EXPECT_NEAR (frame[100].magnitude, 0.375f, 1.0e-3f);
}

TEST_F (AudioPluginAudioProcessorTest, OppositeChannelsAreSilenceToTheAnalysis)
{
    worker.setHop (2048);
    worker.setMagnitudeThreshold (0.0f);

    auto buffer = makeNoise (2, 8192);
    buffer.copyFrom (1, 0, buffer, 0, 0, 8192);
    buffer.applyGain (1, 0, 8192, -1.0f);
    process (buffer);

    Frame frame;
    ASSERT_TRUE (pumpUntil ([&] { return worker.popFrame (frame); }));

    for (const auto magnitude : frame.magnitudes)
        EXPECT_EQ (magnitude, 0.0f);
}

TEST_F (AudioPluginAudioProcessorTest, AMonoLayoutIsAnalysedDirectly)
{
    ASSERT_TRUE (processor.setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    processor.prepareToPlay (48000.0, 512);
    const auto original = makeNoise (1, 512);
    auto buffer = original;
    process (buffer);
    EXPECT_EQ (numAnalysed(), 512);
    EXPECT_TRUE (isEqual (buffer, original));
}

TEST_F (AudioPluginAudioProcessorTest, ABlockLargerThanAnnouncedIsAnalysedWhole)
{
    process (8192);
    EXPECT_EQ (numAnalysed(), 8192);
}

TEST_F (AudioPluginAudioProcessorTest, ClearsTheOutputBeforeTheRateIsKnown)
{
    AudioPluginAudioProcessor fresh;
    fresh.setAnalysisSuspended (false);
    auto buffer = makeNoise (2, 64);
    fresh.processBlock (buffer, midi);
    EXPECT_EQ (buffer.getMagnitude (0, 64), 0.0f);
    EXPECT_EQ (fresh.getFftProcessor().getNumSamplesReady(), 0);
}

TEST_F (AudioPluginAudioProcessorTest, AnInvalidRateIsNotTakenOver)
{
    processor.prepareToPlay (0.0, 512);
    EXPECT_EQ (worker.getSampleRate(), 48000.0);
}

TEST_F (AudioPluginAudioProcessorTest, TheWindowIsOneSampleShorterThanItsLabel)
{
    for (const auto& [index, windowLength] :
         { std::pair { 0.0f, 255 }, { 3.0f, 2047 }, { 5.0f, 8191 }, { 8.0f, 8191 } })
    {
        set (Params::id::fftSize, index);
        process();
        EXPECT_TRUE (
            pumpUntil ([this, wanted = windowLength] { return worker.getCurrentConfig().windowLength == wanted; }));
        EXPECT_EQ (worker.getFftSize(), windowLength + 1);
    }
}

TEST_F (AudioPluginAudioProcessorTest, FreezingStopsTheFeed)
{
    set (Params::id::freeze, 1.0f);
    process();
    EXPECT_EQ (numAnalysed(), 0);
    EXPECT_FALSE (processor.isAutoPaused());
    set (Params::id::freeze, 0.0f);
    process();
    EXPECT_EQ (numAnalysed(), 512);
}

TEST_F (AudioPluginAudioProcessorTest, AutoFreezeFollowsTheTransport)
{
    TestPlayHead playHead;
    processor.setPlayHead (&playHead);
    set (Params::id::autoFreeze, 1.0f);

    process();
    EXPECT_TRUE (processor.isAutoPaused());
    EXPECT_EQ (numAnalysed(), 0);

    playHead.playing = true;
    process();
    EXPECT_FALSE (processor.isAutoPaused());
    EXPECT_EQ (numAnalysed(), 512);

    // Without a position the last known state is kept.
    playHead.hasPosition = false;
    process();
    EXPECT_EQ (numAnalysed(), 1024);

    processor.setPlayHead (nullptr);
    process();
    EXPECT_EQ (numAnalysed(), 1536);
}

TEST_F (AudioPluginAudioProcessorTest, AutoFreezeWithoutAPlayHeadAnalysesNothing)
{
    set (Params::id::autoFreeze, 1.0f);
    process();
    EXPECT_TRUE (processor.isAutoPaused());
    EXPECT_EQ (numAnalysed(), 0);
}

TEST_F (AudioPluginAudioProcessorTest, ModeReachesTheWorkerWithTheNextBlock)
{
    process();
    EXPECT_TRUE (worker.isEnhanced());
    set (Params::id::mode, 0.0f);
    process();
    EXPECT_FALSE (worker.isEnhanced());
}

TEST_F (AudioPluginAudioProcessorTest, TheLowerGainIsTheThresholdEvenWhenTheyCross)
{
    const auto getThresholdWith = [this] (const char* id, float dB)
    {
        set (id, dB);
        processor.updatePictureSettings();
        return worker.getMagnitudeThreshold();
    };

    EXPECT_NEAR (worker.getMagnitudeThreshold(), 1.0e-5f, 1.0e-9f);
    EXPECT_NEAR (getThresholdWith (Params::id::ceiling, -120.0f), 1.0e-6f, 1.0e-10f);
    EXPECT_EQ (getThresholdWith (Params::id::floor, -140.0f), 0.0f);
    EXPECT_EQ (getThresholdWith (Params::id::ceiling, -140.0f), 0.0f);
}

TEST_F (AudioPluginAudioProcessorTest, ParametersChangedElsewhereReachTheBuilderAtTheNextTick)
{
    auto& builder = processor.getImageBuilder();
    EXPECT_EQ (builder.getFrequencyScale().getScaleType(), FrequencyScale::log);

    std::thread ([this] { set (Params::id::freqScale, 3.0f); }).join();
    processor.updatePictureSettings();
    EXPECT_EQ (builder.getFrequencyScale().getScaleType(), FrequencyScale::bark);

    set (Params::id::minFreq, 25.0f);
    set (Params::id::maxFreq, 50.0f);
    processor.updatePictureSettings();
    Column column;
    Frame frame (1025);
    frame.format.sampleRate = 48000.0f;
    builder.frameToColumn (frame, column);
    EXPECT_NEAR (builder.getFrequencyScale().getMinFrequency(), 6000.0f, 0.1f);
    EXPECT_NEAR (builder.getFrequencyScale().getMaxFrequency(), 12000.0f, 0.1f);
}

TEST_F (AudioPluginAudioProcessorTest, CanBeDestroyedWithoutBeingPrepared)
{
    for (int i = 0; i < 20; ++i)
    {
        const AudioPluginAudioProcessor unused (createEditor);
        EXPECT_TRUE (unused.hasEditor());
    }
}

} // namespace
} // namespace mk::orlo::test
