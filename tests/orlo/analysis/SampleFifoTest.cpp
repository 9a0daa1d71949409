// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SampleFifo.h"

#include "RingWriter.h"

#include <numeric>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] std::vector<float> countUp (int first, int count)
{
    std::vector<float> values (static_cast<size_t> (count));
    std::iota (values.begin(), values.end(), float (first));
    return values;
}

[[nodiscard]] std::vector<float> popAll (SampleFifo& fifo)
{
    std::vector<float> values (size_t (fifo.getNumReady()));
    EXPECT_TRUE (fifo.pop (values.data(), int (values.size()), 0));
    return values;
}

void push (SampleFifo& fifo, const std::vector<float>& values) { fifo.push (values.data(), int (values.size())); }

TEST (SampleFifo, ReturnsSamplesInOrderAcrossTheEndOfTheRing)
{
    SampleFifo fifo (10);

    for (int round = 0; round < 20; ++round)
    {
        push (fifo, countUp (round * 7, 7));
        EXPECT_EQ (popAll (fifo), countUp (round * 7, 7));
    }
}

TEST (SampleFifo, OneSlotStaysUnused)
{
    SampleFifo fifo (10);
    push (fifo, countUp (0, 9));
    EXPECT_EQ (fifo.getNumReady(), 9);
    EXPECT_EQ (popAll (fifo), countUp (0, 9));
}

TEST (SampleFifo, DropsTheOldestOfABlockWhenThereIsNoRoom)
{
    SampleFifo fifo (10);
    push (fifo, countUp (0, 8));
    push (fifo, countUp (8, 4));
    EXPECT_EQ (popAll (fifo), countUp (4, 8));
}

TEST (SampleFifo, ABlockLargerThanTheRingKeepsItsNewestSamples)
{
    SampleFifo fifo (10);
    push (fifo, countUp (0, 3));
    push (fifo, countUp (100, 25));
    EXPECT_EQ (popAll (fifo), countUp (116, 9));
}

TEST (SampleFifo, SkipsTheSamplesThatTheReaderSkips)
{
    SampleFifo fifo (20);
    push (fifo, countUp (0, 15));
    std::vector<float> values (4);
    EXPECT_TRUE (fifo.pop (values.data(), 4, 6));
    EXPECT_EQ (values, countUp (0, 4));
    EXPECT_EQ (popAll (fifo), countUp (10, 5));
}

TEST (SampleFifo, AnEmptyBlockChangesNothing)
{
    SampleFifo fifo (10);
    fifo.push (nullptr, 0);
    EXPECT_EQ (fifo.getNumReady(), 0);
    push (fifo, countUp (0, 9));
    fifo.push (nullptr, 0);
    EXPECT_EQ (fifo.getNumReady(), 9);
}

TEST (SampleFifo, DiscardingEmptiesIt)
{
    SampleFifo fifo (10);
    push (fifo, countUp (0, 9));
    fifo.discardAll();
    EXPECT_EQ (fifo.getNumReady(), 0);
    push (fifo, countUp (50, 5));
    EXPECT_EQ (popAll (fifo), countUp (50, 5));
}

TEST (SampleFifo, WithTooFewSamplesReadyNothingIsRemoved)
{
    SampleFifo fifo (10);
    push (fifo, countUp (0, 5));
    std::vector<float> values (6);
    EXPECT_FALSE (fifo.pop (values.data(), 6, 0));
    EXPECT_FALSE (fifo.pop (values.data(), 3, 3));
    EXPECT_EQ (popAll (fifo), countUp (0, 5));
}

TEST (SampleFifo, KeepsASecondStreamBesideTheFirst)
{
    SampleFifo fifo (10);
    fifo.makeRoomForSecond();

    for (int round = 0; round < 20; ++round)
    {
        const auto first = countUp (round * 7, 7), second = countUp (1000 + round * 7, 7);
        fifo.push (first.data(), 7, second.data());
        std::vector<float> poppedFirst (5), poppedSecond (5);
        ASSERT_TRUE (fifo.pop (poppedFirst.data(), 5, 2, poppedSecond.data()));
        EXPECT_EQ (poppedFirst, countUp (round * 7, 5));
        EXPECT_EQ (poppedSecond, countUp (1000 + round * 7, 5));
        EXPECT_EQ (fifo.getPoppedPosition(), 7 * round);
        EXPECT_EQ (fifo.getWritePosition(), 7 * round + 7);
    }
}

TEST (SampleFifo, ABlockLargerThanTheRingKeepsTheNewestSamplesOfBothStreams)
{
    SampleFifo fifo (10);
    fifo.makeRoomForSecond();
    fifo.push (countUp (0, 25).data(), 25, countUp (100, 25).data());
    std::vector<float> first (9), second (9);
    ASSERT_TRUE (fifo.pop (first.data(), 9, 0, second.data()));
    EXPECT_EQ (first, countUp (16, 9));
    EXPECT_EQ (second, countUp (116, 9));
}

// Samples count up to here, the last of the whole numbers that a float can hold one by one, and start again.
constexpr int numValues = 1 << 24;

/** How many samples later than the other one a sample was written, if that was lately. */
[[nodiscard]] int stepsBetween (float from, float to)
{
    const auto steps = (int (to) - int (from) + numValues) % numValues;
    return steps < numValues / 2 ? steps : steps - numValues;
}

/** Pops blocks while a writer pushes blocks of another size. Expects every block to be consecutive and newer than the
    last one. Returns how often samples were missing in between. */
[[nodiscard]] int readWhileWriting (SampleFifo& fifo, int readSize, int writeSize, bool discards)
{
    std::vector<float> written (static_cast<size_t> (writeSize)), values (static_cast<size_t> (readSize));
    int position = -1;
    const RingWriter writer (
        [&] (int number)
        {
            for (auto& sample : written)
                sample = float (position = (position + 1) % numValues);

            push (fifo, written);

            // Between two discards a reader has time to see that there are samples.
            if (discards && number % 2 == 0)
                fifo.discardAll();
        });

    int numReads = 0, numGaps = 0;
    auto newest = -1.0f;

    while (writer.isWantedBy (numReads))
    {
        if (! fifo.pop (values.data(), readSize, 0))
            continue;

        EXPECT_GT (stepsBetween (newest, values.front()), 0);
        numGaps += stepsBetween (newest, values.front()) > 1 ? 1 : 0;

        for (size_t i = 1; i < values.size(); ++i)
            EXPECT_EQ (stepsBetween (values[i - 1], values[i]), 1);

        newest = values.back();
        ++numReads;
    }

    return numGaps;
}

TEST (SampleFifo, AReaderThatIsOverrunGetsWholeBlocksInOrder)
{
    SampleFifo fifo (256);
    EXPECT_GT (readWhileWriting (fifo, 128, 100, false), 0) << "the writer was never ahead";
}

TEST (SampleFifo, ADiscardWhileTheReaderReadsBringsNoOldSamplesBack)
{
    SampleFifo fifo (64);
    EXPECT_GT (readWhileWriting (fifo, 4, 5, true), 0) << "nothing was discarded";
}

} // namespace
} // namespace mk::orlo::test
