// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ColumnPacer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace mk::orlo::test
{
namespace
{

/** A queue of frames in front of the pacer. */
class ColumnPacerTest : public testing::Test
{
protected:
    /** Adds frames to the queue, runs one tick and returns the number of columns that it draws. */
    int tick (float columnsPerTick, int numNewFrames)
    {
        numFrames += numNewFrames;
        share = pacer.next (columnsPerTick, numFrames, framesPerColumn);
        numFrames -= share.numColumns * framesPerColumn + share.numExtraFrames;
        return share.numColumns;
    }

    ColumnPacer pacer;
    ColumnPacer::Share share;
    int framesPerColumn = 1;
    int numFrames = 0;
};

TEST_F (ColumnPacerTest, FractionsOfAColumnAreCarriedOverToTheNextTick)
{
    for (const auto columnsPerTick : { 0.25f, 0.6f, 2.76f, 4.51f })
    {
        pacer = {};
        numFrames = 0;
        auto heard = 0.0f;
        auto numDrawn = 0;

        for (int i = 0; i < 1000; ++i)
        {
            const auto before = int (heard);
            heard += columnsPerTick;
            numDrawn += tick (columnsPerTick, int (heard) - before);
        }

        EXPECT_NEAR (numDrawn, int (heard), 1) << columnsPerTick;
        EXPECT_LE (numFrames, 1) << columnsPerTick;
    }
}

TEST_F (ColumnPacerTest, AColumnIsDrawnOnlyWhenAllOfItsFramesHaveArrived)
{
    framesPerColumn = 3;
    EXPECT_EQ (tick (2.0f, 2), 0);
    EXPECT_EQ (tick (2.0f, 2), 1);
    EXPECT_EQ (numFrames, 1);
}

TEST_F (ColumnPacerTest, ABurstIsSpreadEvenlyOverTheTicks)
{
    // 12 frames arrive at every fourth tick, and each tick asks for 3 columns.
    for (int i = 0; i < 400; ++i)
        EXPECT_NEAR (tick (3.0f, i % 4 == 0 ? 12 : 0), 3, 1) << i;

    EXPECT_EQ (share.numExtraFrames, 0);
}

TEST_F (ColumnPacerTest, MoreColumnsThanTheTicksAskForAreDrawnAsTheyArrive)
{
    auto longestQueue = 0;

    // An eighth more frames arrive than the ticks ask for.
    for (int i = 0; i < 1000; ++i)
    {
        tick (4.0f, i % 2 == 0 ? 4 : 5);
        longestQueue = std::max (longestQueue, numFrames);
        EXPECT_EQ (share.numExtraFrames, 0);
    }

    EXPECT_LE (longestQueue, 2);
}

TEST_F (ColumnPacerTest, ABacklogOfColumnsIsDrawnWithinASecond)
{
    tick (4.0f, 4 + 7);
    EXPECT_EQ (numFrames, 7);

    for (int i = 0; i < 60; ++i)
        EXPECT_LE (tick (4.0f, 4), 8);

    EXPECT_EQ (numFrames, 0);
}

TEST_F (ColumnPacerTest, ALastingBacklogIsDrawnFasterAndMergesTwoFramesATick)
{
    // Frames arrive faster than real time and keep a queue of 49 full.
    for (int i = 0; i < 16; ++i)
    {
        tick (4.0f, 49 - numFrames);
        EXPECT_LE (share.numColumns, 5);
        EXPECT_EQ (share.numExtraFrames, 0);
    }

    tick (4.0f, 49 - numFrames);
    EXPECT_GE (share.numColumns, 8);
    EXPECT_EQ (share.numExtraFrames, 2);
}

TEST_F (ColumnPacerTest, TimeWithoutFramesIsNotCaughtUp)
{
    for (int i = 0; i < 200; ++i)
        EXPECT_EQ (tick (4.0f, 0), 0);

    // The first frames after a pause are drawn at the usual pace, and at most one column early.
    EXPECT_LE (tick (4.0f, 40), 5);
    EXPECT_LE (tick (4.0f, 0), 5);
}

TEST_F (ColumnPacerTest, ALongTickTakesNoMoreFramesThanAreQueued)
{
    for (const auto columnsPerTick : { 1.0e9f, std::numeric_limits<float>::max() })
    {
        EXPECT_EQ (tick (columnsPerTick, 30), 30);
        EXPECT_EQ (tick (columnsPerTick, 0), 0);
    }

    EXPECT_LE (tick (4.0f, 40), 6);
}

TEST_F (ColumnPacerTest, KeepsItsPaceAfterTheQueueIsEmptiedElsewhere)
{
    for (int i = 0; i < 100; ++i)
    {
        tick (4.0f, 4);

        if (i % 10 == 0)
            numFrames = 0;
    }

    EXPECT_NEAR (tick (4.0f, 4), 4, 1);
}

} // namespace
} // namespace mk::orlo::test
