// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/SideBarLayout.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using Bounds = juce::Rectangle<int>;

void expectLayout (int width, int height, Bounds settings, Bounds freeze, Bounds exportPicture, Bounds about)
{
    SCOPED_TRACE (juce::String (width) + " x " + juce::String (height));
    const auto layout = SideBarLayout::forSize (width, height);
    EXPECT_EQ (layout.settings, settings) << layout.settings.toString();
    EXPECT_EQ (layout.freeze, freeze) << layout.freeze.toString();
    EXPECT_EQ (layout.exportPicture, exportPicture) << layout.exportPicture.toString();
    EXPECT_EQ (layout.about, about) << layout.about.toString();
}

TEST (SideBarLayoutTest, PutsThreeButtonsAtTheTopAndOneAtTheBottom)
{
    expectLayout (52, 578, { 9, 13, 34, 34 }, { 9, 59, 34, 34 }, { 10, 105, 32, 32 }, { 8, 461, 36, 104 });
    expectLayout (90, 1000, { 15, 23, 60, 60 }, { 15, 102, 60, 60 }, { 16, 182, 58, 58 }, { 15, 797, 60, 180 });
    expectLayout (
        192, 2112, { 32, 50, 128, 128 }, { 32, 218, 128, 128 }, { 35, 389, 122, 122 }, { 32, 1678, 128, 384 });
}

TEST (SideBarLayoutTest, GivesTheWholeWidthToButtonsInTheNarrowestBar)
{
    expectLayout (15, 100, { 0, 2, 15, 15 }, { 0, 16, 15, 15 }, { 0, 29, 15, 15 }, { 2, 68, 11, 30 });
    expectLayout (10, 300, { 0, 1, 10, 10 }, { 0, 10, 10, 10 }, { 0, 19, 10, 10 }, { 1, 279, 8, 20 });
}

TEST (SideBarLayoutTest, RemovesTheLowerButtonsWhenTheBarIsTooShort)
{
    expectLayout (30, 100, { 5, 7, 20, 20 }, { 5, 34, 20, 20 }, { 6, 61, 18, 18 }, { 5, 93, 20, 0 });
    expectLayout (15, 60, { 0, 2, 15, 15 }, { 0, 16, 15, 15 }, { 0, 29, 15, 15 }, { 2, 58, 11, 0 });
    expectLayout (15, 8, { 0, 2, 15, 4 }, { 0, 5, 15, 0 }, { 0, 3, 15, 0 }, { 2, 6, 11, 0 });
}

TEST (SideBarLayoutTest, NeverGivesANegativeSize)
{
    for (int width = 0; width < 200; ++width)
    {
        for (int height = 0; height < 200; height += 3)
        {
            const auto layout = SideBarLayout::forSize (width, height);

            for (const auto& bounds : { layout.settings, layout.freeze, layout.exportPicture, layout.about })
            {
                EXPECT_GE (bounds.getWidth(), 0) << width << " x " << height;
                EXPECT_GE (bounds.getHeight(), 0) << width << " x " << height;
                EXPECT_LE (bounds.getRight(), width) << width << " x " << height;
            }
        }
    }
}
} // namespace
} // namespace mk::orlo
