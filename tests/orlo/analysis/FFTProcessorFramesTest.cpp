// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests the levels and shifts in the worker's frames.
#include "WorkerWithoutThread.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{

using testing::Each;
using FFTProcessorFramesTest = WorkerWithoutThread;

[[nodiscard]] size_t loudestBin (const Frame& frame)
{
    const auto& magnitudes = frame.magnitudes;
    return size_t (std::max_element (magnitudes.begin(), magnitudes.end()) - magnitudes.begin());
}

void expectSilent (const Frame& frame)
{
    for (const auto magnitude : frame.magnitudes)
        EXPECT_EQ (magnitude, 0.0f);
}

TEST_F (FFTProcessorFramesTest, AFullScaleSineReadsOneInAnyWindow)
{
    for (int type = 0; type < int (WindowType::gaussian); ++type)
    {
        // Exactly on bin 64 of 1024.
        configure (type % 2 == 0 ? 1023 : 511, 256, 0, WindowType (type));
        const auto size = worker.getFftSize();
        const auto frames = analyse (makeSine (44100.0 * 64 / size, 1.0f, 4096, 44100.0));
        EXPECT_EQ (loudestBin (frames.back()), 64u);
        EXPECT_NEAR (frames.back()[64].magnitude, 1.0f, 0.01f) << type;
    }
}

TEST_F (FFTProcessorFramesTest, DCReadsItsOwnLevel)
{
    configure (1023, 256, 0, WindowType::hann);
    const auto frames = analyse (Samples (4096, 0.5f));
    EXPECT_NEAR (frames.back()[0].magnitude, 0.5f, 1.0e-3f);
}

TEST_F (FFTProcessorFramesTest, TheNyquistBinStaysSilent)
{
    configure (255, 64);
    Samples alternating (1024);

    for (size_t i = 0; i < alternating.size(); ++i)
        alternating[i] = i % 2 == 0 ? 0.5f : -0.5f;

    const auto frames = analyse (alternating);
    EXPECT_EQ (frames.back()[128].magnitude, 0.0f);
    EXPECT_GT (frames.back()[127].magnitude, 0.1f);
}

TEST_F (FFTProcessorFramesTest, TheNyquistBinIsClearedAfterALargerTransform)
{
    // Loud in bin 128, which is the Nyquist bin of the smaller size.
    configure (8191, 1024);
    ASSERT_FALSE (analyse (makeSine (44100.0 * 128 / 8192, 0.5f, 16384, 44100.0)).empty());

    configure (255, 64);
    const auto frames = analyse (Samples (1024, 0.0f));
    ASSERT_FALSE (frames.empty());
    expectSilent (frames.back());
}

TEST_F (FFTProcessorFramesTest, SilenceBelowTheThresholdIsZeroInEveryBin)
{
    configure (1023, 256);
    worker.setMagnitudeThreshold (1.0e-7f);

    const auto frames = analyse (Samples (4096, 0.0f));
    ASSERT_EQ (frames.size(), 16u);

    for (const auto& frame : frames)
        expectSilent (frame);
}

TEST_F (FFTProcessorFramesTest, BinsNotAboveTheThresholdReadZero)
{
    configure (1023, 256);
    worker.setMagnitudeThreshold (0.3f);
    const auto frames = analyse (makeSine (44100.0 * 64 / 1024, 0.5f, 4096, 44100.0));

    for (size_t k = 0; k < frames.back().size(); ++k)
        EXPECT_EQ (frames.back()[k].magnitude > 0.0f, k == 64u) << k;
}

TEST_F (FFTProcessorFramesTest, ABinExactlyAtTheThresholdReadsZero)
{
    // Analyses the same samples with each threshold, after enough silence to empty the window.
    const auto analyseWith = [this] (float threshold)
    {
        worker.setMagnitudeThreshold (threshold);
        static_cast<void> (analyse (Samples (2048, 0.0f)));
        return analyse (makeSine (44100.0 * 64 / 1024, 0.5f, 2048, 44100.0)).back()[64].magnitude;
    };

    configure (1023, 256);
    const auto magnitude = analyseWith (0.0f);
    ASSERT_GT (magnitude, 0.4f);
    EXPECT_EQ (analyseWith (magnitude), 0.0f);
    EXPECT_EQ (analyseWith (std::nextafter (magnitude, 0.0f)), magnitude);
}

TEST_F (FFTProcessorFramesTest, AHopLongerThanTheWindowSeesOnlyItsFirstSamples)
{
    configure (255, 1000);

    // The signal is loud only in the samples that no window covers.
    Samples samples (5000, 0.0f);

    for (size_t i = 0; i < samples.size(); ++i)
        if (i % 1000 >= 255)
            samples[i] = 1.0f;

    const auto frames = analyse (samples);
    ASSERT_EQ (frames.size(), 5u);

    for (const auto& frame : frames)
        expectSilent (frame);

    EXPECT_EQ (worker.getNumSamplesReady(), 0);
}

TEST_F (FFTProcessorFramesTest, AHopLongerThanTheBuffersOfAShortWindowIsAnalysed)
{
    // Window 255 at 192 kHz and speed 0: 3072 samples a hop.
    worker.prepareToPlay (192000.0);
    configure (255, 3072);
    const auto frames = analyse (makeSine (192000.0 * 32 / 256, 1.0f, 3072 * 10, 192000.0));
    ASSERT_EQ (frames.size(), 10u);
    EXPECT_EQ (loudestBin (frames.back()), 32u);
    EXPECT_NEAR (frames.back()[32].magnitude, 1.0f, 0.01f);
}

TEST_F (FFTProcessorFramesTest, TheLastSampleOfTheWindowStaysZeroAfterEveryChangeOfHop)
{
    // The long hop fills the window to its end, and a rectangular window would show a sample left there.
    configure (255, 1000, 0, WindowType::rectangular);
    ASSERT_FALSE (analyse (Samples (2000, 1.0f)).empty());

    worker.setHop (64);
    const auto frames = analyse (Samples (1024, 0.0f), 64);
    expectSilent (frames.back());
}

TEST_F (FFTProcessorFramesTest, NaNsLeaveTheWindowEvenIfWindowAndHopChangeMeanwhile)
{
    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();

    configure (2047, 163);
    ASSERT_FALSE (analyse (Samples (4000, nan)).empty());
    configure (255, 700);
    ASSERT_FALSE (analyse (Samples (4000, nan)).empty());
    configure (1023, 100);

    const auto frames = analyse (makeSine (44100.0 * 64 / 1024, 0.5f, 8000, 44100.0));
    EXPECT_NEAR (frames.back()[64].magnitude, 0.5f, 0.01f);

    for (const auto magnitude : frames.back().magnitudes)
        EXPECT_TRUE (std::isfinite (magnitude));
}

TEST_F (FFTProcessorFramesTest, NaNsReadAsSilence)
{
    configure (1023, 256);
    const auto frames = analyse (Samples (2048, std::numeric_limits<float>::quiet_NaN()));
    ASSERT_EQ (frames.size(), 8u);

    for (const auto& frame : frames)
        expectSilent (frame);
}

TEST_F (FFTProcessorFramesTest, FramesDoNotDependOnTheSizeOfTheBlocks)
{
    const auto signal = makeReferenceSignal ("noise", 20000, 44100.0);
    std::vector<std::vector<Frame>> results;

    for (const auto blockSize : { 1, 7, 512, 3000 })
    {
        FFTProcessor fresh;
        fresh.setEnhanced (true);
        fresh.setHop (128);
        std::vector<Frame> frames;

        for (int start = 0; start < 20000; start += blockSize)
        {
            fresh.pushSamples (signal.data() + start, std::min (blockSize, 20000 - start));
            fresh.processAvailable();

            for (Frame frame; fresh.popFrame (frame);)
                frames.push_back (frame);
        }

        results.push_back (frames);
    }

    for (const auto& frames : results)
    {
        ASSERT_EQ (frames.size(), results[0].size());

        for (size_t i = 0; i < frames.size(); ++i)
            for (size_t k = 0; k < frames[i].size(); ++k)
            {
                ASSERT_EQ (frames[i][k].magnitude, results[0][i][k].magnitude);
                ASSERT_EQ (frames[i][k].timeShift, results[0][i][k].timeShift);
                ASSERT_EQ (frames[i][k].freqShift, results[0][i][k].freqShift);
            }
    }
}

TEST_F (FFTProcessorFramesTest, BinsTooQuietToBeReassignedKeepTheShiftsOfTheFrameBefore)
{
    configure (255, 64);
    worker.setEnhanced (true);
    const auto loud = analyse (makeReferenceSignal ("noise", 2048, 44100.0)).back();
    ASSERT_NE (loud.timeShifts[20], 0.0f);
    ASSERT_NE (loud.freqShifts[20], 0.0f);

    // Four hops until the window is silent, and then more frames than the ring has slots.
    const auto frames = analyse (Samples (64 * 80, 0.0f));
    ASSERT_EQ (frames.size(), 80u);
    expectSilent (frames[4]);
    EXPECT_NE (frames[4].timeShifts[20], 0.0f);

    for (size_t i = 5; i < frames.size(); ++i)
    {
        ASSERT_EQ (frames[i].timeShifts, frames[4].timeShifts);
        ASSERT_EQ (frames[i].freqShifts, frames[4].freqShifts);
    }
}

TEST_F (FFTProcessorFramesTest, ClassicLeavesTheShiftsAlone)
{
    configure (1023, 256);
    const auto frames = analyse (makeReferenceSignal ("noise", 4096, 44100.0));

    EXPECT_THAT (frames.back().timeShifts, Each (0.0f));
    EXPECT_THAT (frames.back().freqShifts, Each (0.0f));
}

} // namespace
} // namespace mk::orlo::test
