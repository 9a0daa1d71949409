// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SpectrogramImageBuilder.h"

#include "orlo/analysis/ColourTables.h"
#include "orlo/analysis/FFTProcessor.h"
#include "tests/support/AsciiPicture.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <limits>
#include <thread>
#include <tuple>

namespace mk::orlo::test
{
namespace
{

/** A builder and a worker without their threads. In Classic mode, so that every frame draws one column,
    which is either lit or black. */
class SpectrogramImageBuilderTest : public testing::Test
{
protected:
    SpectrogramImageBuilderTest()
    {
        worker.setSettings ({ { 255, 0, int (WindowType::hann) }, hop, false, 0.0f });
        builder.setRequestedSize (8, 1);
        builder.setMaxFreqFraction (1.0f);
        builder.setLevelRange (-100.0f, -90.0f);
    }

    /** Makes one frame for each character: lit for '#', black for '.'. */
    void makeFrames (const std::string& frames)
    {
        for (const auto c : frames)
        {
            const Samples samples (size_t (hop), 0.0f);
            auto loud = makeReferenceSignal ("noise", hop, 44100.0);
            const auto& block = c == '#' ? loud : samples;
            worker.pushSamples (block.data(), hop);
            worker.processAvailable();
        }
    }

    /** Runs one tick and returns the first row of the picture. */
    [[nodiscard]] std::string tick (float columns)
    {
        builder.processTick (columns);
        const auto image = getPicture();

        if (image.isNull())
            return "none";

        const auto text = toAscii (image);
        return text.substr (0, text.find ('\n'));
    }

    [[nodiscard]] juce::Image getPicture()
    {
        std::ignore = builder.fetchColumns();
        return builder.getPicture().copyShownPart (builder.isPictureScrolling());
    }

    static constexpr int hop = 300; // longer than the window, so that frames do not overlap
    FFTProcessor worker;
    FrameClock clock;
    SpectrogramImageBuilder builder { worker, clock };
};

TEST_F (SpectrogramImageBuilderTest, PaintsAColumnForEveryFrameThatIsDue)
{
    makeFrames ("#.##");
    EXPECT_EQ (tick (2.0f), "#.......");
    EXPECT_EQ (worker.getNumFramesReady(), 2);
    EXPECT_EQ (tick (2.0f), "#.##....");
}

TEST_F (SpectrogramImageBuilderTest, ATickWithoutFramesPublishesNothing)
{
    EXPECT_FALSE (builder.processTick (3.0f));
    EXPECT_EQ (tick (3.0f), "none");
}

TEST_F (SpectrogramImageBuilderTest, ALongTickTakesNoMoreFramesThanAreQueued)
{
    makeFrames ("##");
    EXPECT_EQ (tick (1.0e9f), "##......");
    EXPECT_FALSE (builder.processTick (std::numeric_limits<float>::max()));
}

TEST_F (SpectrogramImageBuilderTest, ShortTicksAddUpToColumns)
{
    makeFrames ("##");
    EXPECT_FALSE (builder.processTick (0.5f));
    EXPECT_TRUE (builder.processTick (0.5f));
    EXPECT_EQ (worker.getNumFramesReady(), 1);
    EXPECT_FALSE (builder.processTick (0.25f));
    EXPECT_FALSE (builder.processTick (0.5f));
    EXPECT_TRUE (builder.processTick (0.25f));
    EXPECT_EQ (worker.getNumFramesReady(), 0);
}

TEST_F (SpectrogramImageBuilderTest, SeveralFramesOfAColumnMergeByTheirPeaks)
{
    builder.setFramesPerColumn (2);
    makeFrames ("#..#..#.");
    EXPECT_EQ (tick (4.0f), "##.#....");
}

TEST_F (SpectrogramImageBuilderTest, AnIncompleteColumnWaitsForItsFrames)
{
    builder.setFramesPerColumn (3);
    makeFrames ("#.");
    EXPECT_FALSE (builder.processTick (2.0f));
    makeFrames (".#");
    EXPECT_EQ (tick (2.0f), "#.......");
    EXPECT_EQ (worker.getNumFramesReady(), 1);
}

TEST_F (SpectrogramImageBuilderTest, ABacklogOfFramesIsMergedIntoTheColumnsThatAreDue)
{
    builder.setRequestedSize (64, 1);

    // Forty frames are queued during sixteen ticks that are too short for a column.
    makeFrames ("........................................");

    for (int i = 0; i < 16; ++i)
        EXPECT_FALSE (builder.processTick (0.05f));

    // One column is due and one overdue. Each of them merges one extra frame with its first frame.
    worker.discardPending();
    makeFrames (".#.#....................................");
    EXPECT_EQ (tick (1.0f).substr (0, 4), "##..");
    EXPECT_EQ (worker.getNumFramesReady(), 36);
}

TEST_F (SpectrogramImageBuilderTest, ScrollToStaticBlanksThePicture)
{
    builder.setScrollMode (true);
    makeFrames ("###");
    EXPECT_EQ (tick (3.0f), ".....###");
    builder.setScrollMode (false);
    makeFrames ("#");
    EXPECT_EQ (tick (1.0f), "#.......");
    builder.setScrollMode (true);
    makeFrames ("#");
    EXPECT_EQ (tick (1.0f), "......##");
}

TEST_F (SpectrogramImageBuilderTest, ANewSizeTakesEffectWithTheNextColumns)
{
    makeFrames ("##");
    EXPECT_EQ (tick (2.0f), "##......");
    builder.setRequestedSize (5, 3);
    EXPECT_FALSE (builder.processTick (1.0f));
    EXPECT_EQ (getPicture().getWidth(), 8);
    makeFrames ("#");
    EXPECT_EQ (tick (1.0f), "###..");
    EXPECT_EQ (getPicture().getHeight(), 3);
}

TEST_F (SpectrogramImageBuilderTest, WithoutASizeFramesAreTakenAndNothingIsPainted)
{
    builder.setRequestedSize (0, 0);
    makeFrames ("##");
    EXPECT_EQ (tick (2.0f), "none");
    EXPECT_EQ (worker.getNumFramesReady(), 0);
}

TEST_F (SpectrogramImageBuilderTest, CrossedLevelsPaintSilenceInTheMapsLastColour)
{
    builder.setLevelRange (0.0f, -100.0f);
    builder.setColourMap (2);
    worker.setEnhanced (true);
    makeFrames ("....");
    builder.processTick (4.0f);
    EXPECT_EQ (getPicture().getPixelAt (0, 0).getARGB(), 0xffFDE724);
}

TEST_F (SpectrogramImageBuilderTest, ANewColourMapColoursOnlyNewColumns)
{
    builder.setColourMap (2);
    makeFrames ("#");
    builder.processTick (1.0f);
    builder.setColourMap (3);
    makeFrames ("#");
    builder.processTick (1.0f);
    EXPECT_EQ (getPicture().getPixelAt (0, 0).getARGB(), 0xffFDE724);
    EXPECT_EQ (getPicture().getPixelAt (1, 0).getARGB(), 0xffEFF821);
}

TEST_F (SpectrogramImageBuilderTest, TheSameColourMapTwiceBuildsNothingTheSecondTime)
{
    EXPECT_EQ (builder.getColourMap()->getMapIndex(), 0u);
    builder.setColourMap (7);
    const auto map = builder.getColourMap();
    EXPECT_EQ (map->getMapIndex(), 7u);
    builder.setColourMap (7);
    EXPECT_EQ (builder.getColourMap(), map);
}

TEST_F (SpectrogramImageBuilderTest, AnIndexBeyondTheMapsSelectsGray)
{
    for (const auto index : { 46, 127, -1 })
    {
        builder.setColourMap (7);
        builder.setColourMap (index);
        EXPECT_EQ (builder.getColourMap()->getMapIndex(), 0u);
    }
}

TEST_F (SpectrogramImageBuilderTest, TheRangeFollowsTheFractionsAndNeverInverts)
{
    Column column;
    builder.setMinFreqFraction (0.5f);
    builder.setMaxFreqFraction (0.25f);
    builder.frameToColumn (Frame (129), column);
    EXPECT_EQ (builder.getFrequencyScale().getMinFrequency(), 11025.0f);
    EXPECT_EQ (builder.getFrequencyScale().getMaxFrequency(), 11025.0f);

    builder.setMinFreqFraction (-1.0f);
    builder.setMaxFreqFraction (9.0f);
    builder.frameToColumn (Frame (129), column);
    EXPECT_EQ (builder.getFrequencyScale().getMinFrequency(), 0.0f);
    EXPECT_EQ (builder.getFrequencyScale().getMaxFrequency(), 22050.0f);
}

TEST_F (SpectrogramImageBuilderTest, TheThreadPaintsOnTicksOnly)
{
    makeFrames ("###");
    builder.startThread();
    clock.tick (2.0f);
    builder.notify();
    EXPECT_TRUE (pumpUntil ([this] { return ! getPicture().isNull(); }));
    EXPECT_EQ (worker.getNumFramesReady(), 1);
    clock.tick (2.0f);
    builder.notify();
    EXPECT_TRUE (pumpUntil ([this] { return worker.getNumFramesReady() == 0; }));
    EXPECT_TRUE (builder.stopThread (1000));
}

TEST_F (SpectrogramImageBuilderTest, ColumnsThatWereNotFetchedAreKept)
{
    for (const auto* const frames : { "#", "..", "##", "." })
    {
        makeFrames (frames);
        builder.processTick (2.0f);
    }

    const auto changes = builder.fetchColumns();
    EXPECT_EQ (changes.count, 8) << "the first columns give the picture its size";
    EXPECT_EQ (toAscii (getPicture()).substr (0, 8), "#..##...");
    EXPECT_TRUE (builder.fetchColumns().isEmpty());
}

TEST_F (SpectrogramImageBuilderTest, OnlyNewColumnsAreReportedAsChanged)
{
    makeFrames ("####");
    EXPECT_EQ (tick (4.0f), "####....");
    makeFrames ("#.#");
    builder.processTick (3.0f);
    const auto changes = builder.fetchColumns();
    EXPECT_EQ (changes.first, 4);
    EXPECT_EQ (changes.count, 3);
    makeFrames (".");
    builder.processTick (1.0f);
    EXPECT_TRUE (builder.fetchColumns().isEmpty()) << "a black column over black";
}

TEST_F (SpectrogramImageBuilderTest, AColumnIsReadyOnceAllItsFramesAre)
{
    EXPECT_FALSE (builder.isColumnReady());
    builder.setFramesPerColumn (3);
    makeFrames ("##");
    EXPECT_FALSE (builder.isColumnReady());
    makeFrames ("#");
    EXPECT_TRUE (builder.isColumnReady());
}

TEST_F (SpectrogramImageBuilderTest, SkippedTicksPaceThePictureAsTicksWithoutFramesDo)
{
    FFTProcessor otherWorker;
    SpectrogramImageBuilder other { otherWorker, clock };
    otherWorker.setSettings ({ { 255, 0, int (WindowType::hann) }, hop, false, 0.0f });
    const Samples silence (size_t (hop), 0.0f);

    for (int turn = 0; turn < 200; ++turn)
    {
        // Frames arrive in bursts of seven every five ticks of 1.2 columns.
        const auto numFrames = turn % 5 == 0 ? 7 : 0;

        for (int i = 0; i < numFrames; ++i)
            for (auto* const target : { &worker, &otherWorker })
            {
                target->pushSamples (silence.data(), hop);
                target->processAvailable();
            }

        builder.processTick (1.2f);

        if (other.isColumnReady())
            other.processTick (1.2f);
        else
            other.skipTicks (1, 1.2f);

        ASSERT_EQ (otherWorker.getNumFramesReady(), worker.getNumFramesReady()) << turn;
    }
}

TEST_F (SpectrogramImageBuilderTest, TicksThatAreNotDueDoNotWakeTheThread)
{
    makeFrames ("###");
    builder.startThread();
    clock.tick (1.0f, false);
    builder.notify();
    clock.tick (1.0f, false);
    EXPECT_TRUE (builder.stopThread (1000));
    EXPECT_EQ (worker.getNumFramesReady(), 3);
    EXPECT_EQ (clock.tickCount.load(), 2u);
}

//==============================================================================
TEST (ColumnExchange, BatchesArriveOnceAndInOrderHoweverOftenTheyAreFetched)
{
    ColumnExchange exchange;
    juce::Random random (3);
    int numPushed = 0, numTaken = 0;
    ColumnBatch batch;

    for (int turn = 0; turn < 1000; ++turn)
    {
        for (int i = random.nextInt (4); --i >= 0;)
        {
            batch.width = numPushed++;
            exchange.push (batch);
        }

        if (random.nextBool())
            exchange.takeAll ([&] (const ColumnBatch& taken) { EXPECT_EQ (taken.width, numTaken++); });
    }

    exchange.takeAll ([&] (const ColumnBatch& taken) { EXPECT_EQ (taken.width, numTaken++); });
    EXPECT_EQ (numTaken, numPushed);
}

TEST (ColumnExchange, HandsEveryColumnFromThreadToThread)
{
    constexpr int numBatches = 20000;
    ColumnExchange exchange;

    std::thread builder (
        [&]
        {
            ColumnBatch batch;

            for (int i = 0; i < numBatches; ++i)
            {
                batch.columns.assign (size_t (1 + i % 3), Column (5, float (i)));
                batch.width = i;
                exchange.push (batch);
            }
        });

    int numTaken = 0, numWrong = 0;

    while (numTaken < numBatches)
        exchange.takeAll (
            [&] (const ColumnBatch& batch)
            {
                const auto expected = std::vector<Column> (size_t (1 + numTaken % 3), Column (5, float (numTaken)));
                numWrong += batch.width != numTaken || batch.columns != expected ? 1 : 0;
                ++numTaken;
            });

    builder.join();
    EXPECT_EQ (numWrong, 0);
}

} // namespace
} // namespace mk::orlo::test
