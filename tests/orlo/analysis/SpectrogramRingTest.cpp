// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SpectrogramRing.h"

#include "tests/support/AsciiPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace mk::orlo::test
{
namespace
{

/** A ring that writes columns of one digit each: 1 .. 9 for levels 0.1 .. 0.9 of a straight ramp. */
class SpectrogramRingTest : public testing::Test
{
protected:
    void write (const std::string& digits)
    {
        std::vector<Column> columns;

        for (const auto digit : digits)
            columns.emplace_back (size_t (ring.getHeight()), digit == '.' ? 0.0f : float (digit - '0') / 10.0f);

        ring.paint (columns, map, SpectrogramRing::background, scroll);
    }

    /** The top row of the shown part; whole() gives that of the whole ring. */
    [[nodiscard]] std::string shown() const { return firstLine (toAscii (ring.copyShownPart (scroll))); }
    [[nodiscard]] std::string whole() const { return firstLine (toAscii (copyWhole())); }
    [[nodiscard]] juce::Image copyWhole() const { return ring.copyColumns (0, 2 * ring.getWidth()); }

    /** The changed columns as text: '#' for each, '.' for the others. */
    [[nodiscard]] std::string takeChanges()
    {
        const auto changes = ring.takeChanges();
        std::string text (size_t (ring.getWidth()), '.');

        for (int i = 0; i < changes.count; ++i)
            text[size_t ((changes.first + i) % ring.getWidth())] = '#';

        return text;
    }

    [[nodiscard]] static std::string firstLine (const std::string& text) { return text.substr (0, text.find ('\n')); }

    const ColourMap map { 13 }; // arctic: its brightness rises evenly enough to read the digit from it
    SpectrogramRing ring;
    bool scroll = false;
};

TEST_F (SpectrogramRingTest, IsEmptyBeforeTheFirstSize)
{
    ring.paint ({ Column (3, 1.0f) }, map, SpectrogramRing::background, false);
    ring.restart();
    EXPECT_TRUE (ring.copyShownPart (false).isNull());
    EXPECT_TRUE (ring.takeChanges().isEmpty());
    EXPECT_EQ (ring.getWidth(), 0);
    EXPECT_EQ (ring.getWriteX(), 0);
}

TEST_F (SpectrogramRingTest, ANewPictureIsBlackAndTwiceAsWideAsShown)
{
    ring.resize (4, 2, false);
    EXPECT_EQ (toAscii (copyWhole()), "........\n........\n");
    EXPECT_EQ (shown(), "....");
}

TEST_F (SpectrogramRingTest, LevelsBecomeColoursFromTheTopDown)
{
    ring.resize (1, 4, false);
    ring.paint ({ { 1.0f, 0.5f, 0.0f, -1.0f } }, map, SpectrogramRing::background, false);
    const auto image = copyWhole();
    EXPECT_EQ (image.getPixelAt (0, 0).getARGB(), map.getPixels()[255]);
    EXPECT_EQ (image.getPixelAt (0, 1).getARGB(), map.getPixels()[128]);
    EXPECT_EQ (image.getPixelAt (0, 2).getARGB(), 0xff000000);
    EXPECT_EQ (image.getPixelAt (0, 3).getARGB(), 0xff000000);
}

TEST_F (SpectrogramRingTest, SilenceTakesTheGivenColourAndANaNTheMapsFirst)
{
    const ColourMap viridis (2);
    ring.resize (1, 2, false);
    ring.paint ({ { 0.0f, std::numeric_limits<float>::quiet_NaN() } }, viridis, 0xff123456, false);
    EXPECT_EQ (copyWhole().getPixelAt (0, 0).getARGB(), 0xff123456);
    EXPECT_EQ (copyWhole().getPixelAt (0, 1).getARGB(), 0xff440154);
}

TEST_F (SpectrogramRingTest, AColumnOfAnotherHeightIsNotWritten)
{
    ring.resize (3, 1, false);
    ring.paint ({ { 1.0f }, { 1.0f, 1.0f }, { 1.0f } }, map, SpectrogramRing::background, false);
    EXPECT_EQ (shown(), "#.#");
}

TEST_F (SpectrogramRingTest, StaticSweepsInsideTheFirstHalf)
{
    ring.resize (5, 1, false);
    write ("99");
    EXPECT_EQ (ring.getWriteX(), 2);
    EXPECT_EQ (shown(), "99...");
    write ("999");
    EXPECT_EQ (ring.getWriteX(), 0);
    write ("5");
    EXPECT_NE (shown()[0], '9');
    EXPECT_EQ (shown().substr (1), "9999");
    EXPECT_EQ (ring.getWriteX(), 1);
}

TEST_F (SpectrogramRingTest, ASweepWrapsFromTheRightEdgeToTheLeft)
{
    ring.resize (5, 1, false);
    write ("9999");
    write (".9.");
    EXPECT_EQ (shown(), "9.99.");
    EXPECT_EQ (whole(), "9.99......");
    EXPECT_EQ (ring.getWriteX(), 2);
}

TEST_F (SpectrogramRingTest, ASweepInTheSecondHalfWrapsInsideThatHalf)
{
    scroll = true;
    ring.resize (5, 1, true);
    write ("999999");
    ring.restart();
    scroll = false;
    write ("9999");
    write (".9.");
    EXPECT_EQ (shown(), "9.99.");
    EXPECT_EQ (whole(), ".....9.99.");
    EXPECT_EQ (ring.getWriteX(), 7);
}

TEST_F (SpectrogramRingTest, ASweepKeepsTheNewestOfTooManyColumns)
{
    ring.resize (3, 1, false);
    write ("99999.9");
    EXPECT_EQ (shown(), "99.");
    EXPECT_EQ (ring.getWriteX(), 1);
}

TEST_F (SpectrogramRingTest, ScrollUsesTheWholeRingAndShowsTheNewestColumns)
{
    scroll = true;
    ring.resize (3, 1, true);
    write ("9");
    EXPECT_EQ (shown(), "..9");
    write (".9");
    EXPECT_EQ (shown(), "9.9");
    write ("..9.");
    EXPECT_EQ (ring.getWriteX(), 1);
    EXPECT_EQ (shown(), ".9.");
}

TEST_F (SpectrogramRingTest, RestartingBlanksThePictureAndContinuesAtTheLeftOfAHalf)
{
    scroll = true;
    ring.resize (3, 1, true);
    write ("99999");
    ring.restart();
    scroll = false;
    EXPECT_EQ (ring.getWriteX(), 3);
    EXPECT_EQ (whole(), "......");
    write ("9");
    EXPECT_EQ (shown(), "9..");
    EXPECT_EQ (ring.getWriteX(), 4);
    write ("9");
    write ("9");
    EXPECT_EQ (ring.getWriteX(), 3);
}

TEST_F (SpectrogramRingTest, SwitchingToScrollKeepsThePicture)
{
    ring.resize (3, 1, false);
    write ("99");
    scroll = true;
    EXPECT_EQ (shown(), ".99");
}

TEST_F (SpectrogramRingTest, AWiderOrNarrowerSweepKeepsItsColumnsOneToOne)
{
    ring.resize (6, 1, false);
    write ("9.9.");
    ring.resize (8, 1, false);
    EXPECT_EQ (shown(), "9.9.....");
    EXPECT_EQ (ring.getWriteX(), 4);

    ring.resize (5, 1, false);
    EXPECT_EQ (shown(), "9.9..");
    EXPECT_EQ (ring.getWriteX(), 4);

    // The new width is too narrow for the sweep, so only its newest columns stay, and it continues at the left.
    ring.resize (3, 1, false);
    EXPECT_EQ (shown(), ".9.");
    EXPECT_EQ (ring.getWriteX(), 0);
}

TEST_F (SpectrogramRingTest, ASweepInTheSecondHalfStaysThere)
{
    scroll = true;
    ring.resize (4, 1, true);
    write ("9999999");
    ring.restart();
    scroll = false;
    ASSERT_EQ (ring.getWriteX(), 4);
    write ("9.");
    ring.resize (6, 1, false);
    EXPECT_EQ (ring.getWriteX(), 6 + 2);
    EXPECT_EQ (shown(), "9.....");
}

TEST_F (SpectrogramRingTest, DoublingTheWidthDoublesEveryColumnAndHalvingJoinsThem)
{
    ring.resize (4, 1, false);
    write ("9.9");
    ring.resize (8, 1, false);
    EXPECT_EQ (shown(), "99..99..");
    EXPECT_EQ (ring.getWriteX(), 6);
    ring.resize (4, 1, false);
    EXPECT_EQ (shown(), "9.9.");
    EXPECT_EQ (ring.getWriteX(), 3);
}

TEST_F (SpectrogramRingTest, AScrollingPictureKeepsItsNewestColumnsAtTheRight)
{
    scroll = true;
    ring.resize (4, 1, true);
    write ("9...9.9");
    EXPECT_EQ (shown(), ".9.9");

    ring.resize (6, 1, true);
    EXPECT_EQ (shown(), "...9.9");
    EXPECT_EQ (ring.getWriteX(), 7);

    ring.resize (3, 1, true);
    EXPECT_EQ (ring.getWriteX(), 5);
    EXPECT_EQ (shown(), "9.9");

    ring.resize (6, 1, true);
    EXPECT_EQ (shown(), "99..99");
}

TEST_F (SpectrogramRingTest, AnotherHeightStretchesTheRows)
{
    ring.resize (2, 2, false);
    ring.paint ({ { 1.0f, 0.0f } }, map, SpectrogramRing::background, false);
    ring.resize (2, 4, false);
    EXPECT_EQ (toAscii (ring.copyShownPart (false)), "#.\n#.\n..\n..\n");
}

//==============================================================================
TEST_F (SpectrogramRingTest, ASweepChangesOnlyTheColumnsItPaints)
{
    ring.resize (6, 1, false);
    EXPECT_EQ (takeChanges(), "######");
    write ("123");
    EXPECT_EQ (takeChanges(), "###...");
    write ("45");
    write ("67");
    EXPECT_EQ (takeChanges(), "#..###");
    EXPECT_EQ (takeChanges(), "......");
    write ("12345678");
    EXPECT_EQ (takeChanges(), "######");
}

TEST_F (SpectrogramRingTest, ASweepOverTheSamePixelsChangesNothing)
{
    ring.resize (6, 1, false);
    write ("..12..");
    EXPECT_EQ (takeChanges(), "######");
    write ("..12..");
    EXPECT_EQ (takeChanges(), "......");
    write (".3.2.4");
    EXPECT_EQ (takeChanges(), ".#####") << "from the first changed column to the last";
}

TEST_F (SpectrogramRingTest, ScrollingChangesAllColumnsUntilOneHasScrolledThrough)
{
    scroll = true;
    ring.resize (4, 1, true);
    write ("1");
    EXPECT_EQ (takeChanges(), "####");
    write (".");
    EXPECT_EQ (takeChanges(), "####");
    write (".");
    EXPECT_EQ (takeChanges(), "###.");
    write (".");
    EXPECT_EQ (takeChanges(), "##..");
    write ("..");
    EXPECT_EQ (takeChanges(), "#...");
    write ("...");
    EXPECT_EQ (takeChanges(), "....");
    write ("1");
    EXPECT_EQ (takeChanges(), "####");
}

TEST_F (SpectrogramRingTest, RestartingAndChangingTheModeChangesEverything)
{
    ring.resize (3, 1, false);
    write ("..");
    EXPECT_EQ (takeChanges(), "###");
    scroll = true;
    write (".");
    EXPECT_EQ (takeChanges(), "###");
    ring.restart();
    EXPECT_EQ (takeChanges(), "###");
}

TEST_F (SpectrogramRingTest, WhatIsNotReportedAsChangedLooksTheSame)
{
    for (const auto widestTile : { 1, 2, 3, 5, 1000 })
    {
        SpectrogramRing tiled (widestTile);
        juce::Random random (5);
        std::string before;
        auto isScrolling = false;

        for (int turn = 0; turn < 1000; ++turn)
        {
            switch (random.nextInt (30))
            {
                case 0: tiled.resize (4 + random.nextInt (9), 1, isScrolling); break;
                case 1: tiled.restart(); break;
                case 2: isScrolling = ! isScrolling; break;
                default: break;
            }

            if (turn == 0)
                tiled.resize (7, 1, isScrolling);

            // Long stretches of one digit alternate with random ones.
            std::vector<Column> columns (size_t (random.nextInt (10) == 0 ? random.nextInt (30) : random.nextInt (3)));

            for (auto& column : columns)
                column.assign (1, turn / 40 % 2 == 0 ? 0.5f : float (1 + random.nextInt (2)) * 0.4f);

            tiled.paint (columns, map, SpectrogramRing::background, isScrolling);

            // A change of the mode takes effect with the next columns.
            if (columns.empty())
                continue;

            const auto changes = tiled.takeChanges();
            const auto after = firstLine (toAscii (tiled.copyShownPart (isScrolling)));
            const auto width = int (after.size());

            for (int x = 0; x < width && changes.count < width; ++x)
                if ((x - changes.first + width) % width >= changes.count)
                {
                    ASSERT_EQ (before.size(), after.size()) << turn;
                    ASSERT_EQ (before[size_t (x)], after[size_t (x)]) << "turn " << turn << ", column " << x;
                }

            before = after;
        }
    }
}

TEST_F (SpectrogramRingTest, ThePiecesMakeUpTheShownPartWhateverTheirWidth)
{
    SpectrogramRing whole, tiled (3);
    juce::Random random (9);

    for (int turn = 0; turn < 500; ++turn)
    {
        if (turn % 50 == 0)
        {
            const auto width = 4 + random.nextInt (20);
            whole.resize (width, 2, scroll);
            tiled.resize (width, 2, scroll);
        }

        const std::vector<Column> columns (size_t (random.nextInt (4)), Column (2, random.nextFloat()));
        whole.paint (columns, map, SpectrogramRing::background, scroll);
        tiled.paint (columns, map, SpectrogramRing::background, scroll);

        juce::Image drawn (juce::Image::RGB, whole.getWidth(), 2, true, juce::SoftwareImageType());
        juce::Graphics g (drawn);
        std::vector<int> timesCovered (size_t (whole.getWidth()));

        tiled.forEachPiece (scroll,
                            [&] (const SpectrogramRing::Piece& piece)
                            {
                                g.drawImageAt (piece.image, piece.x, 0);

                                for (int x = 0; x < piece.image.getWidth(); ++x)
                                    if (juce::isPositiveAndBelow (piece.x + x, whole.getWidth()))
                                        ++timesCovered[size_t (piece.x + x)];
                            });

        ASSERT_EQ (toAscii (drawn), toAscii (whole.copyShownPart (scroll))) << turn;
        ASSERT_TRUE (std::ranges::all_of (timesCovered, [] (int times) { return times == 1; })) << turn;
        scroll = turn % 100 > 50;
    }
}

} // namespace
} // namespace mk::orlo::test
