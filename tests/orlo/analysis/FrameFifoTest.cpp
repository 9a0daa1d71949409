// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/FrameFifo.h"

#include "RingWriter.h"

#include <set>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] Frame makeFrame (float magnitude, size_t numBins = 3)
{
    return Frame (numBins, { magnitude, 0.0f, 0.0f });
}

void push (FrameFifo& fifo, Frame frame)
{
    fifo.getNext() = std::move (frame);
    fifo.push();
}

TEST (FrameFifo, ReturnsFramesInOrderAndWithTheirOwnSize)
{
    FrameFifo fifo (5);
    Frame frame;
    EXPECT_FALSE (fifo.pop (frame));

    for (int i = 0; i < 12; ++i)
    {
        push (fifo, makeFrame (float (i), size_t (i + 1)));
        ASSERT_TRUE (fifo.pop (frame));
        EXPECT_EQ (frame.size(), size_t (i + 1));
        EXPECT_EQ (frame[0].magnitude, float (i));
    }
}

TEST (FrameFifo, AFrameIsReadWhereItWasWritten)
{
    FrameFifo fifo (5);
    fifo.getNext() = makeFrame (1.0f, 100);
    const auto* const written = fifo.getNext().magnitudes.data();
    fifo.push();

    Frame frame;
    ASSERT_TRUE (fifo.pop (frame));
    EXPECT_EQ (frame.magnitudes.data(), written);
}

TEST (FrameFifo, TheStorageOfReadFramesIsWrittenAgain)
{
    FrameFifo fifo (3);
    Frame frame;
    std::set<const float*> blocks;

    for (int i = 0; i < 50; ++i)
    {
        fifo.getNext().resize (100);
        blocks.insert (fifo.getNext().magnitudes.data());
        fifo.push();
        ASSERT_TRUE (fifo.pop (frame));
    }

    // Three slots, a spare on either side, and the frame that the reader holds.
    EXPECT_LE (blocks.size(), 6u);
}

TEST (FrameFifo, DropsTheOldestFrameWhenItIsFull)
{
    FrameFifo fifo (5);

    for (int i = 0; i < 9; ++i)
        push (fifo, makeFrame (float (i)));

    EXPECT_EQ (fifo.getNumReady(), 4);

    Frame frame;

    for (int i = 5; i < 9; ++i)
    {
        ASSERT_TRUE (fifo.pop (frame));
        EXPECT_EQ (frame[0].magnitude, float (i));
    }

    EXPECT_FALSE (fifo.pop (frame));
    EXPECT_EQ (frame[0].magnitude, 8.0f);
}

TEST (FrameFifo, DiscardingEmptiesIt)
{
    FrameFifo fifo (5);
    push (fifo, makeFrame (1.0f));
    fifo.discardAll();
    Frame frame;
    EXPECT_FALSE (fifo.pop (frame));
    push (fifo, makeFrame (2.0f));
    ASSERT_TRUE (fifo.pop (frame));
    EXPECT_EQ (frame[0].magnitude, 2.0f);
}

/** Pops frames while a writer pushes them. The sizes of the frames keep changing, as they do when the user changes
    the window. Expects every frame to be whole and newer than the last one. Returns how often frames were missing in
    between. */
[[nodiscard]] int readWhileWriting (FrameFifo& fifo, bool discards)
{
    const auto sizeOf = [] (int number) { return size_t (1 + number % 40); };
    const RingWriter writer (
        [&] (int number)
        {
            push (fifo, makeFrame (float (number), sizeOf (number)));

            if (discards && number % 2 == 0)
                fifo.discardAll();
        });

    Frame frame;
    int numReads = 0, numGaps = 0, newest = 0;

    while (writer.isWantedBy (numReads))
    {
        if (! fifo.pop (frame))
            continue;

        const auto number = int (frame[0].magnitude);
        EXPECT_GT (number, newest);
        EXPECT_EQ (frame.size(), sizeOf (number));

        for (const auto magnitude : frame.magnitudes)
            EXPECT_EQ (magnitude, float (number));

        numGaps += number > newest + 1 ? 1 : 0;
        newest = number;
        ++numReads;
    }

    return numGaps;
}

TEST (FrameFifo, AReaderThatIsOverrunGetsWholeFramesInOrder)
{
    FrameFifo fifo (4);
    EXPECT_GT (readWhileWriting (fifo, false), 0) << "the writer was never ahead";
}

TEST (FrameFifo, ADiscardWhileTheReaderReadsBringsNoOldFramesBack)
{
    FrameFifo fifo (4);
    EXPECT_GT (readWhileWriting (fifo, true), 0) << "nothing was discarded";
}

} // namespace
} // namespace mk::orlo::test
