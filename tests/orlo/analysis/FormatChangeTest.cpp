// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that every frame is drawn in its own format while window, hop or mode change.
#include "orlo/analysis/ColumnMapper.h"
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/FrequencyScale.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"

#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace mk::orlo::test
{
namespace
{

constexpr double rate = 44100.0;
constexpr int numRows = 257;

// A quarter of the way to Nyquist, on a bin of every window.
constexpr double toneHz = rate / 8.0;
constexpr int toneRow = (numRows - 1) * 3 / 4;

// Right after a change the windows still hold older samples, and the seam spreads the tone over a few bins. If a
// frame were drawn as one of half or twice its size, the tone would be off by 64 rows or more.
constexpr int rowTolerance = 8;

[[nodiscard]] AnalysisSettings makeSettings (int label, int hop, bool enhanced)
{
    return { { label - 1, 0, int (WindowType::hann) }, hop, enhanced, 1.0e-5f };
}

[[nodiscard]] bool isSilent (const Column& column)
{
    return std::all_of (column.begin(), column.end(), [] (float level) { return level <= 0.0f; });
}

[[nodiscard]] int loudestRow (const Column& column)
{
    return int (std::max_element (column.begin(), column.end()) - column.begin());
}

/** Worker and builder without their threads, and a tone that continues through all changes. */
class FormatChangeTest : public testing::Test
{
protected:
    FormatChangeTest()
    {
        worker.prepareToPlay (rate);
        builder.setMaxFreqFraction (1.0f);
        builder.setLevelRange (-100.0f, 0.0f);
        builder.setRequestedSize (300, numRows);
        builder.applyRequestedSize();
    }

    /** Analyses the next samples of the tone and leaves the frames in the queue. */
    void play (int numSamples)
    {
        worker.pushSamples (tone.data() + position, numSamples);
        worker.processAvailable();
        position += numSamples;
    }

    /** Draws all queued frames and returns their columns. */
    [[nodiscard]] std::vector<Column> drawAll()
    {
        std::vector<Column> columns;
        Column column;

        for (Frame frame; worker.popFrame (frame);)
        {
            builder.frameToColumn (frame, column);
            columns.push_back (column);
        }

        return columns;
    }

    /** Expects the tone in the last column, in every other one that is not silent, and in so many in all. In Enhanced
        mode the columns after a change are silent until half a window has passed. */
    static void expectTone (const std::vector<Column>& columns, int fewestTones)
    {
        ASSERT_FALSE (columns.empty());
        EXPECT_FALSE (isSilent (columns.back()));
        EXPECT_GE (std::count_if (columns.begin(), columns.end(), std::not_fn (isSilent)), fewestTones);

        for (size_t i = 0; i < columns.size(); ++i)
        {
            if (! isSilent (columns[i]))
            {
                EXPECT_NEAR (loudestRow (columns[i]), toneRow, rowTolerance) << "column " << i;
            }
        }
    }

    const Samples tone = makeSine (toneHz, 0.5f, 200000, rate);
    int position = 0;
    FFTProcessor worker;
    FrameClock clock;
    SpectrogramImageBuilder builder { worker, clock };
};

TEST_F (FormatChangeTest, QueuedFramesAreDrawnAtTheirOwnFrequencies)
{
    for (const auto enhanced : { false, true })
    {
        // Long enough to fill the window before the frames that are drawn.
        worker.setSettings (makeSettings (8192, 1024, enhanced));
        play (40 * 1024);
        worker.discardPending();
        play (20 * 1024);
        ASSERT_EQ (worker.getNumFramesReady(), 20);

        worker.setSettings (makeSettings (256, 1024, enhanced));
        play (10 * 1024);
        ASSERT_EQ (worker.getNumFramesReady(), 30);

        // Half of a window of 8191 samples is four frames long.
        expectTone (drawAll(), enhanced ? 26 : 30);
    }
}

TEST_F (FormatChangeTest, ThePictureRightAfterAChangeOfSizeHopOrModeShowsTheTone)
{
    const AnalysisSettings changes[] = {
        makeSettings (2048, 128, true), makeSettings (512, 128, true),  makeSettings (512, 64, true),
        makeSettings (512, 500, false), makeSettings (512, 256, false), makeSettings (4096, 256, false),
        makeSettings (4096, 512, true),
    };

    // Fills the window first, since frames of silence show no tone.
    worker.setSettings (changes[0]);
    play (4096);
    worker.discardPending();

    for (const auto& settings : changes)
    {
        worker.setSettings (settings);
        play (24 * settings.hop);
        expectTone (drawAll(), settings.enhanced ? 16 : 24);
    }
}

/** One Enhanced point in the middle of a window of 255 samples. */
class HistoryTest : public testing::Test
{
protected:
    [[nodiscard]] Column map (const FrameFormat& wanted, bool withPoint)
    {
        Frame frame (size_t (wanted.fftSize / 2 + 1));
        frame.format = wanted;
        frame.magnitudes[20] = withPoint ? 0.5f : 0.0f;

        Column column;
        mapper.map (frame, makeColumnSettings (wanted, { 0.0f, 1.0f, -100.0f, 0.0f, numRows }), scale, column);
        return column;
    }

    const FrameFormat format { 255, 256, 32, true, 44100.0f };
    FrequencyScale scale;
    ColumnMapper mapper;
};

TEST_F (HistoryTest, APointIsDrawnHalfAWindowLater)
{
    EXPECT_TRUE (isSilent (map (format, true)));

    // Half a window is 127 samples, or 4 hops.
    for (int i = 1; i < 4; ++i)
        EXPECT_TRUE (isSilent (map (format, false))) << i;

    EXPECT_FALSE (isSilent (map (format, false)));
    EXPECT_TRUE (isSilent (map (format, false)));
}

TEST_F (HistoryTest, IsClearedWhenTheFormatChanges)
{
    const FrameFormat others[] = { { 511, 256, 32, true, 44100.0f },
                                   { 255, 512, 32, true, 44100.0f },
                                   { 255, 256, 33, true, 44100.0f },
                                   { 255, 256, 32, false, 44100.0f },
                                   { 255, 256, 32, true, 48000.0f } };

    for (const auto& other : others)
    {
        EXPECT_TRUE (isSilent (map (format, true)));

        for (int i = 0; i < 20; ++i)
            EXPECT_TRUE (isSilent (map (other, false))) << i;
    }
}

} // namespace
} // namespace mk::orlo::test
