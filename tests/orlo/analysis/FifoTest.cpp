// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/FrameFifo.h"
#include "orlo/analysis/SampleFifo.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numeric>
#include <thread>

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
    fifo.pop (values.data(), int (values.size()), 0);
    return values;
}

void push (SampleFifo& fifo, const std::vector<float>& values) { fifo.push (values.data(), int (values.size())); }

TEST (SampleFifo, GivesBackWhatWasPushedInOrderAcrossTheEnd)
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

TEST (SampleFifo, SkipsWhatTheReaderDoesNotWant)
{
    SampleFifo fifo (20);
    push (fifo, countUp (0, 15));
    std::vector<float> values (4);
    fifo.pop (values.data(), 4, 6);
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

TEST (SampleFifo, WithAWriterThatOverrunsTheReaderAlwaysMovesForward)
{
    SampleFifo fifo (64);
    std::atomic<bool> done { false };

    std::thread writer (
        [&]
        {
            for (int i = 0; i < 200000; i += 5)
                push (fifo, countUp (i, 5));

            done.store (true, std::memory_order_release);
        });

    float newest = -1.0f;
    std::vector<float> values (16);

    while (! done.load (std::memory_order_acquire))
    {
        if (fifo.getNumReady() >= 16)
        {
            fifo.pop (values.data(), 16, 0);

            for (const auto value : values)
            {
                EXPECT_GE (value, 0.0f);
                EXPECT_LT (value, 200000.0f);
                newest = std::max (newest, value);
            }
        }
    }

    writer.join();
    const auto rest = popAll (fifo);
    EXPECT_LE (rest.size(), 63u);
    EXPECT_TRUE (rest.empty() || rest.back() == 199999.0f);
    EXPECT_TRUE (! rest.empty() || newest == 199999.0f);
}

//==============================================================================
[[nodiscard]] Frame makeFrame (float magnitude, size_t numBins = 3)
{
    return Frame (numBins, { magnitude, 0.0f, 0.0f });
}

TEST (FrameFifo, GivesBackFramesInOrderAndOfTheirOwnSize)
{
    FrameFifo fifo (5);
    Frame frame;
    EXPECT_FALSE (fifo.pop (frame));

    for (int i = 0; i < 12; ++i)
    {
        fifo.push (makeFrame (float (i), size_t (i + 1)));
        ASSERT_TRUE (fifo.pop (frame));
        EXPECT_EQ (frame.size(), size_t (i + 1));
        EXPECT_EQ (frame.front().magnitude, float (i));
    }
}

TEST (FrameFifo, DropsTheOldestFrameWhenItIsFull)
{
    FrameFifo fifo (5);

    for (int i = 0; i < 9; ++i)
        fifo.push (makeFrame (float (i)));

    EXPECT_EQ (fifo.getNumReady(), 4);

    Frame frame;

    for (int i = 5; i < 9; ++i)
    {
        ASSERT_TRUE (fifo.pop (frame));
        EXPECT_EQ (frame.front().magnitude, float (i));
    }

    EXPECT_FALSE (fifo.pop (frame));
    EXPECT_EQ (frame.front().magnitude, 8.0f);
}

TEST (FrameFifo, DiscardingEmptiesIt)
{
    FrameFifo fifo (5);
    fifo.push (makeFrame (1.0f));
    fifo.discardAll();
    Frame frame;
    EXPECT_FALSE (fifo.pop (frame));
    fifo.push (makeFrame (2.0f));
    ASSERT_TRUE (fifo.pop (frame));
    EXPECT_EQ (frame.front().magnitude, 2.0f);
}

TEST (FrameFifo, WithAWriterThatOverrunsEveryFrameReadIsWhole)
{
    FrameFifo fifo (4);
    std::atomic<bool> done { false };

    std::thread writer (
        [&]
        {
            // Sizes change all the time, as they do when the user changes the window.
            for (int i = 1; i <= 20000; ++i)
                fifo.push (makeFrame (float (i), size_t (1 + i % 40)));

            done.store (true, std::memory_order_release);
        });

    Frame frame;

    while (! done.load (std::memory_order_acquire))
    {
        if (fifo.pop (frame))
        {
            const auto number = int (frame.front().magnitude);
            ASSERT_EQ (frame.size(), size_t (1 + number % 40));

            for (const auto& bin : frame)
                ASSERT_EQ (bin.magnitude, float (number));
        }
    }

    writer.join();
}

} // namespace
} // namespace mk::orlo::test
