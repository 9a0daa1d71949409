// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ContainerLayout.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using Bounds = juce::Rectangle<int>;

TEST (ContainerLayout, PutsPictureKeyboardAndRulerFromLeftToRight)
{
    const auto layout = layOutContainer (1728, 1000, 25.0f, 1000, true, true);
    EXPECT_EQ (layout.ruler, (Bounds { 1678, 0, 50, 1000 })) << "two texts wide";
    EXPECT_EQ (layout.keyboard, (Bounds { 1628, 0, 50, 1000 }));
    EXPECT_EQ (layout.picture, (Bounds { 0, 0, 1628, 1000 }));
    EXPECT_EQ (layout.helpLine, (Bounds { 0, 950, 1628, 50 }));
}

TEST (ContainerLayout, PictureAndHelpGetTheWidthOfAHiddenStrip)
{
    const auto layout = layOutContainer (1728, 1000, 25.0f, 1000, false, true);
    EXPECT_EQ (layout.keyboard, (Bounds { 1678, 0, 50, 1000 }));
    EXPECT_EQ (layout.picture, (Bounds { 0, 0, 1678, 1000 }));
    EXPECT_EQ (layout.helpLine.getWidth(), 1678);
    EXPECT_EQ (layOutContainer (1728, 1000, 25.0f, 1000, false, false).picture, (Bounds { 1728, 1000 }));
}

TEST (ContainerLayout, KeepsTheStripsLegibleInASmallWindow)
{
    EXPECT_EQ (layOutContainer (300, 200, 4.0f, 200, true, false).ruler.getWidth(), 30);
    EXPECT_EQ (layOutContainer (300, 10, 4.0f, 200, true, false).ruler.getWidth(), 20)
        << "no more than twice the height";
    EXPECT_EQ (layOutContainer (300, 200, 15.6f, 200, true, false).ruler.getWidth(), 32) << "the text is rounded first";
}

TEST (ContainerLayout, GivesTheHelpAtLeastAFewPixels)
{
    EXPECT_EQ (layOutContainer (300, 200, 15.0f, 200, false, false).helpLine, (Bounds { 0, 185, 300, 15 }));
    EXPECT_EQ (layOutContainer (300, 200, 15.0f, 0, false, false).helpLine, (Bounds { 0, 150, 300, 50 }));
    EXPECT_EQ (layOutContainer (300, 999, 15.0f, 999, false, false).helpLine.getHeight(), 49) << "cut, not rounded";
}

TEST (ContainerLayout, TheStripsStayInsideTheContainer)
{
    for (int width = 0; width <= 120; ++width)
    {
        const auto layout = layOutContainer (width, 100, 25.0f, 100, true, true);
        ASSERT_TRUE ((Bounds { width, 100 }.contains (layout.ruler)));
        ASSERT_TRUE ((Bounds { width, 100 }.contains (layout.keyboard)));
        ASSERT_EQ (layout.picture.getWidth() + layout.keyboard.getWidth() + layout.ruler.getWidth(), width);
    }

    EXPECT_EQ (layOutContainer (90, 100, 25.0f, 100, true, true).picture.getWidth(), 0);
}

TEST (ContextMenuItemHeight, FollowsTheDiagonalOfTheWindow)
{
    EXPECT_EQ (getContextMenuItemHeight (1818, 1000), 46);
    EXPECT_EQ (getContextMenuItemHeight (909, 500), 23);
    EXPECT_EQ (getContextMenuItemHeight (3636, 2000), 92);
    EXPECT_EQ (getContextMenuItemHeight (100, 100), 15) << "the minimum";
    EXPECT_EQ (getContextMenuItemHeight (0, 0), 46) << "the default without a window";
}

} // namespace
} // namespace mk::orlo::test
