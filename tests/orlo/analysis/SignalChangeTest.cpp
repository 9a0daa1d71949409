// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that no frame of the worker shows the signals of two sources.
#include "WorkerWithoutThread.h"

namespace mk::orlo::test
{
namespace
{

void expectSilence (const Frame& frame)
{
    for (const auto magnitude : frame.magnitudes)
        EXPECT_EQ (magnitude, 0.0f);
}

/** The frames of a signal by an analyser that has heard nothing else. */
[[nodiscard]] std::vector<Frame> analyseAlone (const Samples& signal, const AnalysisSettings& settings)
{
    SpectralAnalyser analyser;
    analyser.configure (settings.window);
    std::vector<Frame> frames (signal.size() / size_t (settings.hop));

    for (size_t i = 0; i < frames.size(); ++i)
        analyser.process (signal.data() + i * size_t (settings.hop), settings, 44100.0, frames[i]);

    return frames;
}

class SignalChangeTest : public WorkerWithoutThread, public testing::WithParamInterface<int>
{
protected:
    const AnalysisSettings settings { { 1023, 0, int (WindowType::hann) }, GetParam(), true, 0.0f };
    const Samples before = makeReferenceSignal ("noise", 8192, 44100.0);
    const Samples after = makeSine (3000.0, 0.5f, 8192, 44100.0);
};

TEST_P (SignalChangeTest, FramesAreSilentUntilTheyShowTheNewSignalOnly)
{
    worker.setSettings (settings);
    EXPECT_GT (analyse (before).back().magnitudes[100], 0.0f);

    worker.startSignal (1);
    const auto frames = analyse (after);
    const auto expected = analyseAlone (after, settings);
    ASSERT_EQ (frames.size(), expected.size());

    for (size_t i = 0; i < frames.size(); ++i)
    {
        if (int (i + 1) * settings.hop < settings.window.windowLength)
            expectSilence (frames[i]);
        else
            EXPECT_EQ (frames[i].magnitudes, expected[i].magnitudes) << i;
    }
}

TEST_P (SignalChangeTest, SamplesThatWaitAreDropped)
{
    worker.setSettings (settings);
    worker.pushSamples (before.data(), 5000);
    worker.startSignal (1);
    EXPECT_EQ (worker.getNumSamplesReady(), 0);

    // The signals of a source that was left before the worker woke up are never analysed.
    worker.pushSamples (before.data(), 100);
    worker.startSignal (1);
    const auto frames = analyse (after);
    ASSERT_EQ (frames.size(), after.size() / size_t (settings.hop));
    EXPECT_EQ (frames.back().magnitudes, analyseAlone (after, settings).back().magnitudes);
}

TEST_P (SignalChangeTest, TwoStreamsHaveAFrameEach)
{
    worker.setSettings (settings);
    worker.makeRoomForSecondStream();
    worker.startSignal (2);
    std::vector<Frame> frames;

    for (int start = 0; start < 8192; start += 512)
    {
        worker.pushSamples (before.data() + start, after.data() + start, 512);
        worker.processAvailable();

        for (Frame frame; worker.popFrame (frame);)
            frames.push_back (frame);
    }

    const auto first = analyseAlone (before, settings), second = analyseAlone (after, settings);
    ASSERT_EQ (frames.size(), first.size());

    for (size_t i = 0; i < frames.size(); ++i)
    {
        ASSERT_EQ (frames[i].others.size(), 1u);

        if (int (i + 1) * settings.hop < settings.window.windowLength)
        {
            expectSilence (frames[i]);
            expectSilence (frames[i].others[0]);
            continue;
        }

        EXPECT_EQ (frames[i].magnitudes, first[i].magnitudes);
        EXPECT_EQ (frames[i].others[0].magnitudes, second[i].magnitudes);
        EXPECT_EQ (frames[i].others[0].timeShifts, second[i].timeShifts);
        EXPECT_EQ (frames[i].others[0].format, frames[i].format);
    }

    // And one stream again has none.
    worker.startSignal (1);
    EXPECT_TRUE (analyse (after).back().others.empty());
}

// Hops that are a part of the window, and longer than it.
INSTANTIATE_TEST_SUITE_P (Hops, SignalChangeTest, testing::Values (64, 100, 2000));

} // namespace
} // namespace mk::orlo::test
