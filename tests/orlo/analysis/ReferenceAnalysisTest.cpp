// SPDX-License-Identifier: AGPL-3.0-or-later
// Compares the worker and the image builder with an independent model, from the samples to the levels.
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"

#include "tests/support/GoldenVectors.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mk::orlo::test
{
namespace
{

class ReferenceAnalysisTest : public testing::TestWithParam<std::string>
{
protected:
    ReferenceAnalysisTest()
    {
        worker.prepareToPlay (reference.sampleRate);
        worker.setSettings (
            { { reference.label - 1, 0, int (WindowType::hann) }, reference.hop, reference.enhanced, 0.0f });
    }

    /** Returns all frames of the signal, pushed in small blocks so that the ring of frames never overflows. */
    [[nodiscard]] std::vector<Frame> analyse()
    {
        const auto signal = makeReferenceSignal (reference.signal, reference.numSamples, reference.sampleRate);
        std::vector<Frame> frames;

        for (int start = 0; start < reference.numSamples; start += reference.hop)
        {
            worker.pushSamples (signal.data() + start, std::min (reference.hop, reference.numSamples - start));
            worker.processAvailable();

            for (Frame frame; worker.popFrame (frame);)
                frames.push_back (frame);
        }

        return frames;
    }

    const ReferenceAnalysis reference = loadReferenceAnalysis (GetParam());
    FFTProcessor worker;
};

void expectFrameNear (const Frame& frame, const ReferenceFrame& expected, bool enhanced)
{
    for (size_t i = 0; i < expected.bins.size(); ++i)
    {
        const auto& bin = frame[size_t (expected.bins[i])];
        const auto magnitude = expected.magnitude[i];
        EXPECT_NEAR (bin.magnitude, magnitude, 2.0e-4f * magnitude + 2.0e-6f) << "bin " << expected.bins[i];

        if (enhanced && magnitude > 1.0e-3f)
        {
            const auto time = expected.timeShift[i];
            const auto frequency = expected.freqShift[i];
            EXPECT_NEAR (bin.timeShift, time, 0.05f + 1.0e-3f * std::abs (time)) << "bin " << expected.bins[i];
            EXPECT_NEAR (bin.freqShift, frequency, 0.1f + 1.0e-3f * std::abs (frequency)) << "bin " << expected.bins[i];
        }
    }
}

void expectClassicColumnNear (const Column& column, const ReferenceColumn& expected)
{
    for (size_t y = 0; y < expected.levels.size(); ++y)
        EXPECT_NEAR (column[y], expected.levels[y], 2.0e-3f) << "row " << y;
}

/** Allows a few points of an Enhanced column to round to the neighbouring row, but no further. */
void expectEnhancedColumnNear (const Column& column, const ReferenceColumn& expected)
{
    const auto holds = [] (const Column& c, size_t y) { return y < c.size() && c[y] > 0.0f; };
    const auto holdsNear = [&] (const Column& c, size_t y)
    { return holds (c, y) || holds (c, y - 1) || holds (c, y + 1); };

    int points = 0, displaced = 0;

    for (size_t y = 0; y < expected.levels.size(); ++y)
    {
        const auto ours = holds (column, y);
        const auto theirs = holds (expected.levels, y);
        points += theirs ? 1 : 0;

        if (ours && theirs)
        {
            EXPECT_NEAR (column[y], expected.levels[y], 2.0e-3f) << "row " << y;
        }
        else if (ours || theirs)
        {
            ++displaced;
            EXPECT_TRUE (holdsNear (ours ? expected.levels : column, y)) << "row " << y;
        }
    }

    EXPECT_LE (float (displaced), 0.02f * float (points));
}

TEST_P (ReferenceAnalysisTest, FramesMatch)
{
    const auto frames = analyse();
    ASSERT_EQ (int (frames.size()), reference.numFrames);
    ASSERT_FALSE (reference.frames.empty());

    for (const auto& expected : reference.frames)
    {
        const auto& frame = frames[size_t (expected.index)];
        ASSERT_EQ (int (frame.size()), reference.numBins);
        SCOPED_TRACE (expected.index);
        expectFrameNear (frame, expected, reference.enhanced);
    }
}

TEST_P (ReferenceAnalysisTest, ColumnsMatch)
{
    const auto frames = analyse();
    ASSERT_FALSE (reference.columns.empty());

    for (const auto& expected : reference.columns)
    {
        EXPECT_EQ (ColumnMapper::getHistoryLength (reference.label - 1, reference.hop), expected.history);

        const FrameClock clock;
        SpectrogramImageBuilder builder (worker, clock);
        builder.setRequestedSize (1, expected.height);
        builder.setMinFreqFraction (expected.minFraction);
        builder.setMaxFreqFraction (expected.maxFraction);
        builder.setLevelRange (expected.floorDb, expected.ceilingDb);
        builder.getFrequencyScale().setScaleType (expected.scaleType);
        builder.applyRequestedSize();

        Column column;

        for (int i = 0; i <= expected.index; ++i)
            builder.frameToColumn (frames[size_t (i)], column);

        ASSERT_EQ (column.size(), expected.levels.size());
        SCOPED_TRACE (expected.scaleType);

        if (reference.enhanced)
            expectEnhancedColumnNear (column, expected);
        else
            expectClassicColumnNear (column, expected);
    }
}

INSTANTIATE_TEST_SUITE_P (Signals,
                          ReferenceAnalysisTest,
                          testing::ValuesIn (getReferenceAnalysisNames()),
                          [] (const auto& test) { return test.param; });

} // namespace
} // namespace mk::orlo::test
