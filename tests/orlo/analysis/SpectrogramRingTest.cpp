// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SpectrogramRing.h"

#include "tests/support/AsciiPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <ranges>

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
    [[nodiscard]] std::string shown() const
    {
        Snapshot snapshot;
        ring.copyShownPart (snapshot, scroll);
        return firstLine (toAscii (snapshot.image));
    }

    [[nodiscard]] std::string whole() const { return firstLine (toAscii (ring.getImage())); }

    [[nodiscard]] static std::string firstLine (const std::string& text) { return text.substr (0, text.find ('\n')); }

    const ColourMap map { 13 }; // arctic: its brightness rises evenly enough to read the digit from it
    SpectrogramRing ring;
    bool scroll = false;
};

TEST_F (SpectrogramRingTest, IsEmptyBeforeTheFirstSize)
{
    Snapshot snapshot;
    ring.paint ({ Column (3, 1.0f) }, map, SpectrogramRing::background, false);
    ring.copyShownPart (snapshot, false);
    ring.restart();
    EXPECT_TRUE (snapshot.image.isNull());
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
    Snapshot snapshot;
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (toAscii (snapshot.image), "#.\n#.\n..\n..\n");
}

TEST_F (SpectrogramRingTest, TheSnapshotIsReallocatedOnlyForAnotherSize)
{
    ring.resize (3, 2, false);
    Snapshot snapshot;
    ring.copyShownPart (snapshot, false);
    const auto* const pixels = snapshot.image.getPixelData().get();
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (snapshot.image.getPixelData().get(), pixels);
    ring.resize (3, 3, false);
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (snapshot.image.getHeight(), 3);
}

TEST_F (SpectrogramRingTest, ASnapshotThatSkippedSomeTurnsIsBroughtUpToDate)
{
    std::array<Snapshot, 3> snapshots;
    juce::Random random (5);
    ring.resize (7, 1, false);

    for (int turn = 0; turn < 2000; ++turn)
    {
        switch (random.nextInt (20))
        {
            case 0: ring.resize (4 + random.nextInt (9), 1, scroll); break;
            case 1: ring.restart(); break;
            case 2: scroll = ! scroll; break;
            default: break;
        }

        std::string digits;

        for (int i = random.nextInt (4) == 0 ? random.nextInt (30) : random.nextInt (3); --i >= 0;)
            digits += char ('1' + random.nextInt (9));

        write (digits);

        // The third snapshot is skipped for many turns.
        auto& snapshot = snapshots[size_t (random.nextInt (10) == 0 ? 2 : turn % 2)];
        ring.copyShownPart (snapshot, scroll);
        ASSERT_EQ (firstLine (toAscii (snapshot.image)), shown()) << turn;
    }
}

TEST_F (SpectrogramRingTest, ASnapshotThatMissedSomeScrollingIsCompleted)
{
    ring.resize (6, 1, false);
    write ("12345");
    Snapshot snapshot;
    ring.copyShownPart (snapshot, false);

    scroll = true;
    write ("678");
    scroll = false;
    ring.copyShownPart (snapshot, false);
    EXPECT_EQ (firstLine (toAscii (snapshot.image)), shown());
}

TEST_F (SpectrogramRingTest, OnlyTheNewColumnsOfASweepAreCopied)
{
    ring.resize (6, 1, false);
    write ("12345");
    Snapshot snapshot;
    ring.copyShownPart (snapshot, false);

    // Marks every pixel, so that those which the copy leaves alone stay white.
    for (int x = 0; x < 6; ++x)
        snapshot.image.setPixelAt (x, 0, juce::Colours::white);

    const auto isCopied = [&snapshot] (int x) { return snapshot.image.getPixelAt (x, 0) != juce::Colours::white; };
    const std::array columns { 0, 1, 2, 3, 4, 5 };
    const auto getCopied = [&] { return std::ranges::count_if (columns, isCopied); };

    // The second column wraps to the left edge.
    write ("67");
    ring.copyShownPart (snapshot, false);
    EXPECT_TRUE (isCopied (5) && isCopied (0));
    EXPECT_EQ (getCopied(), 2);

    write ("8");
    ring.copyShownPart (snapshot, false);
    EXPECT_TRUE (isCopied (1));
    EXPECT_EQ (getCopied(), 3);
}

} // namespace
} // namespace mk::orlo::test
