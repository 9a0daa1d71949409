// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the worker's settings, rings, thread and reports; what is in its frames is tested elsewhere.
#include "WorkerWithoutThread.h"

#include "tests/support/MessageLoop.h"

namespace mk::orlo::test
{
namespace
{

using FFTProcessorTest = WorkerWithoutThread;

TEST_F (FFTProcessorTest, StartsWithAHannWindowOf1023)
{
    EXPECT_EQ (worker.getCurrentConfig(), (AnalysisConfig { 1023, 0, 2 }));
    EXPECT_EQ (worker.getFftSize(), 1024);
    EXPECT_EQ (worker.getSampleRate(), 44100.0);
    EXPECT_EQ (worker.getNumFramesReady(), 0);
}

TEST_F (FFTProcessorTest, AWindowOneShortOfAPowerOfTwoUsesThatPower)
{
    for (const auto label : { 256, 512, 1024, 2048, 4096, 8192 })
    {
        configure (label - 1, 64);
        EXPECT_EQ (worker.getFftSize(), label);
        const auto frames = analyse (Samples (64, 0.0f));
        ASSERT_EQ (frames.size(), 1u);
        EXPECT_EQ (frames[0].size(), size_t (label / 2 + 1));
    }
}

TEST_F (FFTProcessorTest, PaddingDoublesOrQuadruplesTheTransform)
{
    configure (255, 64, 1);
    EXPECT_EQ (worker.getFftSize(), 512);
    configure (511, 64, 2);
    EXPECT_EQ (worker.getFftSize(), 2048);
    configure (255, 64, 7);
    EXPECT_EQ (worker.getFftSize(), 256);
}

TEST_F (FFTProcessorTest, AConfigOfTheSameWindowLengthIsIgnored)
{
    configure (255, 64);
    worker.setPendingConfig ({ 255, 2, int (WindowType::blackman) });
    worker.processAvailable();
    EXPECT_EQ (worker.getCurrentConfig(), (AnalysisConfig { 255, 0, int (WindowType::hann) }));
}

TEST_F (FFTProcessorTest, WithoutAHopNothingIsAnalysed)
{
    const auto frames = analyse (Samples (5000, 0.5f));
    EXPECT_TRUE (frames.empty());
    EXPECT_EQ (worker.getNumSamplesReady(), 5000);
}

TEST_F (FFTProcessorTest, EveryCompleteHopGivesOneFrame)
{
    configure (1023, 100);
    EXPECT_EQ (analyse (Samples (1050, 0.1f)).size(), 10u);
    EXPECT_EQ (worker.getNumSamplesReady(), 50);
    EXPECT_EQ (analyse (Samples (50, 0.1f)).size(), 1u);
}

TEST_F (FFTProcessorTest, AFrameHoldsTheFormatItWasAnalysedWith)
{
    worker.prepareToPlay (48000.0);
    worker.setSettings ({ { 511, 1, int (WindowType::hann) }, 100, true, 0.0f });
    const auto frames = analyse (Samples (100, 0.1f));
    ASSERT_EQ (frames.size(), 1u);
    EXPECT_EQ (frames[0].format, (FrameFormat { 511, 1024, 100, true, 48000.0f }));
}

TEST_F (FFTProcessorTest, ReturnsTheSettingsThatWereSet)
{
    const AnalysisSettings settings { { 255, 0, int (WindowType::hann) }, 77, true, 0.25f, PointsKept::lines };
    worker.setSettings (settings);
    EXPECT_EQ (worker.getSettings(), settings);
}

TEST_F (FFTProcessorTest, TheOldestFramesAreDroppedWhenTheRingIsFull)
{
    configure (255, 10);
    const Samples samples (1000, 0.0f);
    worker.pushSamples (samples.data(), 1000);
    worker.processAvailable();
    EXPECT_EQ (worker.getNumFramesReady(), 49);
}

TEST_F (FFTProcessorTest, DiscardingEmptiesBothRings)
{
    configure (255, 100);
    const Samples samples (250, 0.0f);
    worker.pushSamples (samples.data(), 250);
    worker.processAvailable();
    worker.discardPending();
    EXPECT_EQ (worker.getNumFramesReady(), 0);
    EXPECT_EQ (worker.getNumSamplesReady(), 0);
}

TEST_F (FFTProcessorTest, TheSampleRingHoldsAlmost163840Samples)
{
    const Samples samples (100000, 0.0f);
    worker.pushSamples (samples.data(), 100000);
    worker.pushSamples (samples.data(), 63839);
    EXPECT_EQ (worker.getNumSamplesReady(), 163839);
    worker.pushSamples (samples.data(), 10);
    EXPECT_EQ (worker.getNumSamplesReady(), 163839);
}

TEST_F (FFTProcessorTest, ANewRateIsReportedOnTheMessageThreadAndTheSameOneIsNot)
{
    std::vector<double> rates;
    worker.onSampleRateChanged = [&] (double rate) { rates.push_back (rate); };

    worker.prepareToPlay (48000.0);
    EXPECT_TRUE (rates.empty());
    pumpPending();
    EXPECT_EQ (rates, std::vector<double> { 48000.0 });

    worker.prepareToPlay (48000.0);
    pumpPending();
    EXPECT_EQ (rates.size(), 1u);
}

TEST_F (FFTProcessorTest, TheFirstRateIsReportedEvenIfItEqualsThePlaceholder)
{
    std::vector<double> rates;
    worker.onSampleRateChanged = [&] (double rate) { rates.push_back (rate); };

    for (int i = 0; i < 2; ++i)
    {
        worker.prepareToPlay (44100.0);
        pumpPending();
        EXPECT_EQ (rates, std::vector<double> { 44100.0 });
    }
}

TEST_F (FFTProcessorTest, APendingRateIsNotReportedAfterTheWorkerIsDestroyed)
{
    auto called = false;
    auto shortLived = std::make_unique<FFTProcessor>();
    shortLived->onSampleRateChanged = [&] (double) { called = true; };
    shortLived->prepareToPlay (96000.0);
    shortLived = nullptr;
    pumpPending();
    EXPECT_FALSE (called);
}

TEST_F (FFTProcessorTest, TheThreadAnalysesWhatIsPushed)
{
    worker.setHop (128);
    worker.startThread();
    const auto signal = makeSine (1000.0, 0.5f, 4096, 44100.0);
    worker.pushSamples (signal.data(), 4096);
    EXPECT_TRUE (pumpUntil ([this] { return worker.getNumFramesReady() == 32; }));
    EXPECT_TRUE (worker.stopThread (1000));
}

} // namespace
} // namespace mk::orlo::test
