// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/FrameFifo.h"
#include "orlo/analysis/SampleFifo.h"

#include <gtest/gtest.h>

#include <atomic>
#include <numeric>
#include <set>
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

constexpr int manyBlocks = 2000;

// A machine that gives the reader little time still lets it see this many; the loops end at the writer's end.
constexpr int fewBlocks = 20;

/** Pushes 0, 1, 2 ... in blocks of five on its own thread, until it has pushed all or is destroyed. */
class CountingWriter
{
public:
    static constexpr int numSamples = 4000000; // whole numbers that a float can hold

    explicit CountingWriter (SampleFifo& target) : fifo (target) {}

    ~CountingWriter()
    {
        stopRequested.store (true, std::memory_order_release);
        thread.join();
    }

    [[nodiscard]] bool isDone() const { return done.load (std::memory_order_acquire); }

private:
    void run()
    {
        for (int i = 0; i < numSamples && ! stopRequested.load (std::memory_order_acquire); i += 5)
            push (fifo, countUp (i, 5));

        done.store (true, std::memory_order_release);
    }

    SampleFifo& fifo;
    std::atomic<bool> stopRequested { false }, done { false };
    std::thread thread { [this] { run(); } };
};

/** Pops blocks until the writer is done or manyBlocks have been popped. Expects every block to be consecutive and
    newer than the last one. Returns the number of blocks. */
[[nodiscard]] int readWhileWriting (SampleFifo& fifo, const CountingWriter& writer, int blockSize)
{
    int numBlocks = 0;
    auto newest = -1.0f;
    std::vector<float> values (static_cast<size_t> (blockSize));

    while (! writer.isDone() && numBlocks < manyBlocks && ! testing::Test::HasFailure())
    {
        if (fifo.getNumReady() < blockSize || ! fifo.pop (values.data(), blockSize, 0))
            continue;

        EXPECT_GT (values.front(), newest);
        EXPECT_EQ (values, countUp (int (values.front()), blockSize));
        newest = values.back();
        ++numBlocks;
    }

    return numBlocks;
}

TEST (SampleFifo, AReaderThatIsOverrunGetsWholeBlocksInOrder)
{
    SampleFifo fifo (64);
    const CountingWriter writer (fifo);
    EXPECT_GE (readWhileWriting (fifo, writer, 16), fewBlocks);
}

TEST (SampleFifo, ADiscardWhileTheReaderReadsBringsNoOldSamplesBack)
{
    SampleFifo fifo (64);
    const CountingWriter writer (fifo);
    std::atomic<bool> done { false };
    std::thread discarder (
        [&]
        {
            while (! done.load (std::memory_order_acquire))
                fifo.discardAll();
        });

    EXPECT_GE (readWhileWriting (fifo, writer, 4), fewBlocks);
    done.store (true, std::memory_order_release);
    discarder.join();
}

//==============================================================================
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

/** Pushes frames 1, 2, 3 ... on its own thread, until it has pushed all or is destroyed. The sizes of the frames
    keep changing, as they do when the user changes the window. */
class FrameWriter
{
public:
    explicit FrameWriter (FrameFifo& target) : fifo (target) {}

    ~FrameWriter()
    {
        stopRequested.store (true, std::memory_order_release);
        thread.join();
    }

    [[nodiscard]] static size_t sizeOf (int number) { return size_t (1 + number % 40); }
    [[nodiscard]] bool isDone() const { return done.load (std::memory_order_acquire); }

private:
    void run()
    {
        for (int i = 1; i <= 2000000 && ! stopRequested.load (std::memory_order_acquire); ++i)
            push (fifo, makeFrame (float (i), sizeOf (i)));

        done.store (true, std::memory_order_release);
    }

    FrameFifo& fifo;
    std::atomic<bool> stopRequested { false }, done { false };
    std::thread thread { [this] { run(); } };
};

/** Pops frames until the writer is done or mostFrames have been popped. Expects every frame to be whole and newer
    than the last one. Returns the number of frames. */
[[nodiscard]] int readWhileWriting (FrameFifo& fifo, const FrameWriter& writer, int mostFrames)
{
    Frame frame;
    int numFrames = 0, newest = 0;

    while (! writer.isDone() && numFrames < mostFrames && ! testing::Test::HasFailure())
    {
        if (! fifo.pop (frame))
            continue;

        const auto number = int (frame[0].magnitude);
        EXPECT_GT (number, newest);
        EXPECT_EQ (frame.size(), FrameWriter::sizeOf (number));

        for (const auto magnitude : frame.magnitudes)
            EXPECT_EQ (magnitude, float (number));

        newest = number;
        ++numFrames;
    }

    return numFrames;
}

constexpr int manyFrames = 2000;

TEST (FrameFifo, AReaderThatIsOverrunGetsWholeFramesInOrder)
{
    FrameFifo fifo (4);
    const FrameWriter writer (fifo);
    EXPECT_GE (readWhileWriting (fifo, writer, manyFrames), fewBlocks);
}

TEST (FrameFifo, ADiscardWhileTheWriterDropsBringsNoOldFramesBack)
{
    FrameFifo fifo (4);
    const FrameWriter writer (fifo);
    std::atomic<bool> done { false };
    std::thread discarder (
        [&]
        {
            while (! done.load (std::memory_order_acquire))
                fifo.discardAll();
        });

    EXPECT_GE (readWhileWriting (fifo, writer, manyFrames), fewBlocks);
    done.store (true, std::memory_order_release);
    discarder.join();
}

} // namespace
} // namespace mk::orlo::test
