// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/PicturePainter.h"

#include "tests/support/Sanitizers.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] int countDifferences (const juce::Image& one, const juce::Image& other)
{
    if (one.getBounds() != other.getBounds())
        return -1;

    int numDifferent = 0;

    for (int y = 0; y < one.getHeight(); ++y)
        for (int x = 0; x < one.getWidth(); ++x)
            numDifferent += one.getPixelAt (x, y) != other.getPixelAt (x, y) ? 1 : 0;

    return numDifferent;
}

class PicturePainterTest : public testing::Test
{
protected:
    void addColumns (int numColumns)
    {
        std::vector<Column> columns (size_t (numColumns), Column (size_t (ring.getHeight())));

        for (auto& column : columns)
            for (auto& level : column)
                level = random.nextInt (4) == 0 ? 0.0f : random.nextFloat();

        ring.paint (columns, map, SpectrogramRing::background, scroll);
    }

    [[nodiscard]] juce::Image paint (PicturePainter& painterToUse, float scale) const
    {
        const auto pixels = (view.toDouble() * double (scale)).getSmallestIntegerContainer();
        juce::Image image (juce::Image::ARGB, pixels.getWidth(), pixels.getHeight(), true, juce::SoftwareImageType());
        juce::Graphics g (image);
        g.addTransform (juce::AffineTransform::scale (scale));
        painterToUse.paint (g, ring, scroll, view);
        return image;
    }

    const ColourMap map { 2 };
    SpectrogramRing ring;
    PicturePainter painter;
    juce::Rectangle<int> view { 40, 24 };
    juce::Random random { 4 };
    bool scroll = false;
};

TEST_F (PicturePainterTest, DrawsAPictureOfTheScreensResolutionPixelByPixel)
{
    for (const auto scale : { 1, 2 })
        for (const auto isScrolling : { false, true })
        {
            scroll = isScrolling;
            ring.resize (40 * scale, 24 * scale, scroll);
            addColumns (100);
            EXPECT_EQ (countDifferences (paint (painter, float (scale)), ring.copyShownPart (scroll)), 0);
        }
}

TEST_F (PicturePainterTest, EveryPixelShowsThePictureAtItsLeftTopCorner)
{
    ring.resize (40, 24, false);
    addColumns (40);
    const auto picture = ring.copyShownPart (false);

    for (const auto scale : { 1.25, 1.5, 2.0, 3.0, 0.5 })
    {
        const auto painted = paint (painter, float (scale));

        for (int y = 0; y < painted.getHeight(); ++y)
            for (int x = 0; x < painted.getWidth(); ++x)
                ASSERT_EQ (painted.getPixelAt (x, y), picture.getPixelAt (int (x / scale), int (y / scale)))
                    << scale << ": " << x << ", " << y;
    }
}

TEST_F (PicturePainterTest, KeepsItsCopyUpToDate)
{
    PicturePainter tiled { 7 };

    for (int turn = 0; turn < 2000 / slowdown; ++turn)
    {
        if (turn % 100 == 0)
            ring.resize (20 + random.nextInt (60), 10 + random.nextInt (30), scroll);

        if (random.nextInt (50) == 0)
            scroll = ! scroll;

        if (random.nextInt (100) == 0)
            view = { 20 + random.nextInt (40), 10 + random.nextInt (30) };

        addColumns (random.nextInt (20) == 0 ? random.nextInt (90) : 1 + random.nextInt (4));
        const auto changes = ring.takeChanges();
        painter.noteChanges (changes);
        tiled.noteChanges (changes);

        // Sometimes the picture is not painted before the next change, or it is painted to export it.
        const auto scale = turn % 20 == 0 ? 1.0f : turn % 400 < 200 ? 1.25f : 1.5f;

        if (random.nextInt (3) != 0)
        {
            PicturePainter fresh;
            const auto expected = paint (fresh, scale);
            ASSERT_EQ (countDifferences (paint (painter, scale), expected), 0) << turn;
            ASSERT_EQ (countDifferences (paint (tiled, scale), expected), 0) << turn;
        }
    }
}

TEST (FindChangedAreas, CoverTheChangedColumnsAndAUnitBesideThem)
{
    const juce::Rectangle view { 100, 50 };
    EXPECT_TRUE (findChangedAreas ({}, 100, view)[0].isEmpty());
    EXPECT_TRUE (findChangedAreas ({ 0, 3 }, 0, view)[0].isEmpty());

    const auto strip = findChangedAreas ({ 10, 3 }, 100, view);
    EXPECT_EQ (strip[0], (juce::Rectangle { 9, 0, 5, 50 }));
    EXPECT_TRUE (strip[1].isEmpty());

    const auto wrapped = findChangedAreas ({ 98, 5 }, 100, view);
    EXPECT_EQ (wrapped[0], (juce::Rectangle { 97, 0, 3, 50 }));
    EXPECT_EQ (wrapped[1], (juce::Rectangle { 0, 0, 4, 50 }));

    // Two columns to a unit, and two units to a column.
    EXPECT_EQ (findChangedAreas ({ 21, 2 }, 200, view)[0], (juce::Rectangle { 9, 0, 4, 50 }));
    EXPECT_EQ (findChangedAreas ({ 10, 1 }, 50, view)[0], (juce::Rectangle { 19, 0, 4, 50 }));
    EXPECT_EQ (findChangedAreas ({ 0, 100 }, 100, view)[0], view);
}

} // namespace
} // namespace mk::orlo::test
