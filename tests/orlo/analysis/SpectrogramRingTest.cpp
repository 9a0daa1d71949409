// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SpectrogramRing.h"

#include "tests/support/AsciiPicture.h"

#include <gtest/gtest.h>

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

    /** The top row of what is shown, and of the whole ring. */
    [[nodiscard]] std::string shown() const
    {
        juce::Image snapshot;
        ring.copyShownPart (snapshot, scroll);
        return firstLine (toAscii (snapshot));
    }

    [[nodiscard]] std::string whole() const { return firstLine (toAscii (ring.getImage())); }

    [[nodiscard]] static std::string firstLine (const std::string& text) { return text.substr (0, text.find ('\n')); }

    const ColourMap map { 13 }; // arctic: rises evenly enough for the brightness to give the digit back
    SpectrogramRing ring;
    bool scroll = false;
};

TEST_F (SpectrogramRingTest, BeforeTheFirstSizeThereIsNothing)
{
    juce::Image snapshot;
    ring.paint ({ Column (3, 1.0f) }, map, SpectrogramRing::background, false);
    ring.copyShownPart (snapshot, false);
    ring.restart();
    EXPECT_TRUE (snapshot.isNull());
    EXPECT_EQ (ring.getWidth(), 0);
    EXPECT_EQ (ring.getWriteX(), 0);
}

TEST_F (SpectrogramRingTest, ANewPictureIsBlackAndTwiceAsWideAsShown)
{
    ring.resize (4, 2, false);
    EXPECT_EQ (toAscii (ring.getImage()), "........\n........\n");
    EXPECT_EQ (shown(), "....");
}

TEST_F (SpectrogramRingTest, LevelsBecomeColoursFromTheTopDown)
{
    ring.resize (1, 4, false);
    ring.paint ({ { 1.0f, 0.5f, 0.0f, -1.0f } }, map, SpectrogramRing::background, false);
    const auto& image = ring.getImage();
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
    EXPECT_EQ (ring.getImage().getPixelAt (0, 0).getARGB(), 0xff123456);
    EXPECT_EQ (ring.getImage().getPixelAt (0, 1).getARGB(), 0xff440154);
}

TEST_F (SpectrogramRingTest, AColumnOfAnotherHeightLeavesItsPlaceAsItIs)
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

TEST_F (SpectrogramRingTest, ScrollRunsRoundTheWholeRingAndShowsTheNewestColumns)
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

TEST_F (SpectrogramRingTest, RestartingBlanksThePictureAndGoesOnAtTheLeftOfAHalf)
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

TEST_F (SpectrogramRingTest, SwitchingToScrollKeepsWhatIsThere)
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

    // Too narrow for the sweep: its newest columns stay, and it goes on at the left.
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
    juce::Image snapshot;
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (toAscii (snapshot), "#.\n#.\n..\n..\n");
}

TEST_F (SpectrogramRingTest, TheSnapshotIsMadeAnewOnlyForAnotherSize)
{
    ring.resize (3, 2, false);
    juce::Image snapshot;
    ring.copyShownPart (snapshot, false);
    const auto* const pixels = snapshot.getPixelData().get();
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (snapshot.getPixelData().get(), pixels);
    ring.resize (3, 3, false);
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (snapshot.getHeight(), 3);
}

} // namespace
} // namespace mk::orlo::test
