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
        const auto& image = builder.getFrontImage();

        if (image.isNull())
            return "none";

        const auto text = toAscii (image);
        return text.substr (0, text.find ('\n'));
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
    EXPECT_EQ (builder.getFrontImage().getWidth(), 8);
    makeFrames ("#");
    EXPECT_EQ (tick (1.0f), "###..");
    EXPECT_EQ (builder.getFrontImage().getHeight(), 3);
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
    EXPECT_EQ (builder.getFrontImage().getPixelAt (0, 0).getARGB(), 0xffFDE724);
}

TEST_F (SpectrogramImageBuilderTest, ANewColourMapColoursOnlyNewColumns)
{
    builder.setColourMap (2);
    makeFrames ("#");
    builder.processTick (1.0f);
    builder.setColourMap (3);
    makeFrames ("#");
    builder.processTick (1.0f);
    EXPECT_EQ (builder.getFrontImage().getPixelAt (0, 0).getARGB(), 0xffFDE724);
    EXPECT_EQ (builder.getFrontImage().getPixelAt (1, 0).getARGB(), 0xffEFF821);
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
    EXPECT_TRUE (pumpUntil ([this] { return ! builder.getFrontImage().isNull(); }));
    EXPECT_EQ (worker.getNumFramesReady(), 1);
    clock.tick (2.0f);
    EXPECT_TRUE (pumpUntil ([this] { return worker.getNumFramesReady() == 0; }));
    EXPECT_TRUE (builder.stopThread (1000));
}

//==============================================================================
TEST (SnapshotExchange, TheViewGetsTheNewestPictureAndKeepsItUntilTheNext)
{
    SnapshotExchange exchange;
    EXPECT_TRUE (exchange.getFront().isNull());

    for (int width = 1; width < 50; ++width)
    {
        exchange.getBack().image = juce::Image (juce::Image::ARGB, width, 1, true, juce::SoftwareImageType());
        exchange.publish();

        // Only every third picture is taken.
        if (width % 3 == 0)
        {
            EXPECT_EQ (exchange.getFront().getWidth(), width);
            EXPECT_EQ (exchange.getFront().getWidth(), width);
        }
    }
}

TEST (SnapshotExchange, NoPictureIsEverSeenHalfWritten)
{
    SnapshotExchange exchange;
    std::atomic<bool> done { false };

    std::thread builder (
        [&]
        {
            for (int i = 1; i <= 5000; ++i)
            {
                auto& image = exchange.getBack().image;

                if (image.isNull())
                    image = juce::Image (juce::Image::ARGB, 16, 16, true, juce::SoftwareImageType());

                image.clear (image.getBounds(), juce::Colour (0xff000000 | juce::uint32 (i)));
                exchange.publish();
            }

            done.store (true, std::memory_order_release);
        });

    juce::uint32 last = 0;

    while (! done.load (std::memory_order_acquire) || last != 5000)
    {
        const auto& image = exchange.getFront();

        if (image.isNull())
            continue;

        const auto number = image.getPixelAt (0, 0).getARGB() & 0xffffff;
        ASSERT_EQ (image.getPixelAt (15, 15).getARGB() & 0xffffff, number);
        ASSERT_GE (number, last);
        last = number;
    }

    builder.join();
}

} // namespace
} // namespace mk::orlo::test
