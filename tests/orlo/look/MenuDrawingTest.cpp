// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/PluginLookAndFeel.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::distance;
using test::drawnImage;
using test::findInk;

[[nodiscard]] juce::Rectangle<int>
    idealSize (PluginLookAndFeel& style, const juce::String& text, bool isSeparator, int height)
{
    int w = -1, h = -1;
    style.getIdealPopupMenuItemSize (text, isSeparator, height, w, h);
    return { w, h };
}

struct ItemState
{
    bool isSeparator = false;
    bool isActive = true;
    bool isHighlighted = false;
    bool isTicked = false;
    bool hasSubMenu = false;
};

[[nodiscard]] juce::Image
    drawItem (PluginLookAndFeel& style, const juce::String& text, ItemState state, int width = 300, int height = 40)
{
    return drawnImage (width,
                       height,
                       [&] (juce::Graphics& g)
                       {
                           style.drawPopupMenuItem (g,
                                                    { width, height },
                                                    state.isSeparator,
                                                    state.isActive,
                                                    state.isHighlighted,
                                                    state.isTicked,
                                                    state.hasSubMenu,
                                                    text,
                                                    {},
                                                    nullptr,
                                                    nullptr);
                       });
}

TEST (MenuDrawingTest, ASeparatorIsFiftyWideAndATenthOfAnEntryHigh)
{
    PluginLookAndFeel style;
    EXPECT_EQ (idealSize (style, "", true, 46), juce::Rectangle<int> (50, 4));
    EXPECT_EQ (idealSize (style, "", true, 0), juce::Rectangle<int> (50, 10));
    EXPECT_EQ (idealSize (style, "", true, -1), juce::Rectangle<int> (50, 10));
}

TEST (MenuDrawingTest, AnEntryIsAsWideAsItsTextAtThreeQuartersOfItsHeight)
{
    PluginLookAndFeel style;
    const auto font = style.getPopupMenuFont().withHeight (30.0f);
    const auto size = idealSize (style, "Switch to Full View", false, 40);
    EXPECT_EQ (size.getHeight(), 40);
    EXPECT_EQ (size.getWidth(), juce::GlyphArrangement::getStringWidthInt (font, "Switch to Full View"));
}

TEST (MenuDrawingTest, WithoutAStandardHeightAnEntryFitsTheMenusFont)
{
    PluginLookAndFeel style;
    EXPECT_EQ (idealSize (style, "Freeze", false, 0).getHeight(), 19);
}

TEST (MenuDrawingTest, AnOpenMenuHasRoomForTheWholeTextTickAndArrow)
{
    PluginLookAndFeel style;

    for (const auto height : { 15, 24, 46, 97 })
    {
        const auto text = juce::String::fromUTF8 ("Configuración de fábrica");
        int w = 0, h = 0;
        style.getIdealPopupMenuItemSizeWithOptions (text, false, height, w, h, {});
        const auto bare = idealSize (style, text, false, height);
        const auto column = (w - bare.getWidth()) / 2;
        EXPECT_GE (column, height * 3 / 4);

        const auto image = drawItem (style, text, {}, w, h);
        const auto ink = findInk (image);
        EXPECT_GE (ink.getX(), column - 1) << height;
        EXPECT_LE (ink.getRight(), w - column + 1) << height;
        EXPECT_GT (ink.getWidth(), bare.getWidth() * 9 / 10) << "the text is not squeezed at " << height;
    }
}

TEST (MenuDrawingTest, ASeparatorGetsNoSideRoom)
{
    PluginLookAndFeel style;
    int w = 0, h = 0;
    style.getIdealPopupMenuItemSizeWithOptions ({}, true, 46, w, h, {});
    EXPECT_EQ (w, 50);
}

TEST (MenuDrawingTest, TheBackgroundIsARoundedRectangleOverTheWholeMenu)
{
    PluginLookAndFeel style;
    const auto image = drawnImage (80, 60, [&] (juce::Graphics& g) { style.drawPopupMenuBackground (g, 80, 60); });
    const auto colour = style.findColour (juce::PopupMenu::backgroundColourId);

    EXPECT_EQ (image.getPixelAt (40, 30), colour);
    EXPECT_EQ (image.getPixelAt (40, 0), colour);
    EXPECT_EQ (image.getPixelAt (0, 30), colour);
    EXPECT_LT (image.getPixelAt (0, 0).getAlpha(), 60);
    EXPECT_EQ (image.getPixelAt (2, 2).getAlpha(), 255) << "inside a corner of radius 4";
}

TEST (MenuDrawingTest, AMenuInAWindowOfItsOwnPaintsItsCornersToo)
{
    PluginLookAndFeel style;
    const auto draw = [&style] (const juce::PopupMenu::Options& options)
    {
        return drawnImage (
                   80, 60, [&] (juce::Graphics& g) { style.drawPopupMenuBackgroundWithOptions (g, 80, 60, options); })
            .getPixelAt (0, 0)
            .getAlpha();
    };

    juce::Component parent;
    EXPECT_EQ (draw ({}), 255);
    EXPECT_LT (draw (juce::PopupMenu::Options().withParentComponent (&parent)), 60);
}

TEST (MenuDrawingTest, AMenuInsideTheWindowIsNotOpaque)
{
    PluginLookAndFeel style;
    juce::Component menu;
    menu.setOpaque (true);
    style.preparePopupMenuWindow (menu);
    EXPECT_FALSE (menu.isOpaque());
}

TEST (MenuDrawingTest, OnlyAnEnabledEntryUnderTheMouseIsHighlighted)
{
    PluginLookAndFeel style;
    const auto lit = style.findColour (juce::PopupMenu::highlightedBackgroundColourId);
    EXPECT_EQ (drawItem (style, "", { .isHighlighted = true }).getPixelAt (150, 20), lit);
    EXPECT_TRUE (findInk (drawItem (style, "", { .isActive = false, .isHighlighted = true })).isEmpty());
}

TEST (MenuDrawingTest, TickAndArrowAreInTheSideColumns)
{
    PluginLookAndFeel style;
    const auto tick = findInk (drawItem (style, "", { .isTicked = true }));
    const auto arrow = findInk (drawItem (style, "", { .hasSubMenu = true }));
    EXPECT_FALSE (tick.isEmpty());
    EXPECT_LT (tick.getRight(), 34);
    EXPECT_FALSE (arrow.isEmpty());
    EXPECT_GT (arrow.getX(), 266);
}

TEST (MenuDrawingTest, ADisabledEntryIsDim)
{
    PluginLookAndFeel style;
    const auto strongest = [] (const juce::Image& image)
    {
        int alpha = 0;

        for (int x = 0; x < image.getWidth(); ++x)
            for (int y = 0; y < image.getHeight(); ++y)
                alpha = std::max (alpha, int (image.getPixelAt (x, y).getAlpha()));

        return alpha;
    };

    EXPECT_EQ (strongest (drawItem (style, "HHH", {})), 255);
    EXPECT_NEAR (strongest (drawItem (style, "HHH", { .isActive = false })), 102, 1);
}

TEST (MenuDrawingTest, AHeaderIsABandWithItsTextOnIt)
{
    PluginLookAndFeel style;
    const auto image = drawnImage (300,
                                   40,
                                   [&] (juce::Graphics& g) {
                                       style.drawPopupMenuSectionHeader (g, { 300, 40 }, "Factory");
                                   });
    const auto band = style.findColour (juce::PopupMenu::headerTextColourId).withAlpha (0.9f);

    EXPECT_EQ (findInk (image), juce::Rectangle<int> (0, 6, 300, 28));
    EXPECT_LE (distance (image.getPixelAt (250, 20), band), 1);

    bool hasText = false;

    for (int x = 0; x < 300 && ! hasText; ++x)
        hasText = image.getPixelAt (x, 20) == style.findColour (juce::PopupMenu::textColourId);

    EXPECT_TRUE (hasText);
}
} // namespace
} // namespace mk::orlo
