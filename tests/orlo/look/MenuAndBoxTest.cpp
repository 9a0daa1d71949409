// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/look/OrloColours.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "plugin_core/look/StyleProperties.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::distance;
using test::drawnImage;
using test::findInk;
using test::snapshotOf;
namespace styleProperty = pluginCore::styleProperty;

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
        const juce::String text ("Configuración de fábrica");
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
    EXPECT_EQ (image.getPixelAt (2, 2).getAlpha(), 255) << "a radius of 4";
}

TEST (MenuDrawingTest, AMenuOfItsOwnWindowPaintsItsCornersToo)
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

TEST (MenuDrawingTest, OnlyAnActiveEntryUnderTheMouseIsLit)
{
    PluginLookAndFeel style;
    const auto lit = style.findColour (juce::PopupMenu::highlightedBackgroundColourId);
    EXPECT_EQ (drawItem (style, "", { .isHighlighted = true }).getPixelAt (150, 20), lit);
    EXPECT_TRUE (findInk (drawItem (style, "", { .isActive = false, .isHighlighted = true })).isEmpty());
}

TEST (MenuDrawingTest, TickAndArrowStandInTheSideColumns)
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

//==============================================================================
class ComboBoxDrawingTest : public testing::Test
{
protected:
    ComboBoxDrawingTest()
    {
        box.addItem ("2048", 1);
        box.setSelectedId (1, juce::dontSendNotification);
        window.add (box, { 0, 0, 169, 56 });
    }

    [[nodiscard]] juce::Label& label() { return *dynamic_cast<juce::Label*> (box.getChildComponent (0)); }

    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::ComboBox box;
};

TEST_F (ComboBoxDrawingTest, TheFaceIsTheRaisedBackgroundWithAnOutlineTwoPixelsWide)
{
    const auto image = snapshotOf (box);
    const auto outline = window.style.findColour (juce::ComboBox::outlineColourId);
    EXPECT_EQ (image.getPixelAt (80, 5).getARGB(), 0xFF2F2F2Fu);
    EXPECT_LE (distance (image.getPixelAt (80, 0), outline), 1);
    EXPECT_LE (distance (image.getPixelAt (80, 1), outline), 1);
    EXPECT_EQ (image.getPixelAt (80, 2).getARGB(), 0xFF2F2F2Fu);
    EXPECT_EQ (image.getPixelAt (1, 1).getAlpha(), 0) << "round corners";
}

TEST_F (ComboBoxDrawingTest, ADisabledBoxIsHalfTransparent)
{
    box.setEnabled (false);
    EXPECT_NEAR (int (snapshotOf (box).getPixelAt (80, 5).getAlpha()), 128, 1);
}

TEST_F (ComboBoxDrawingTest, TextFollowsTheWindowAndFitsBesideTheArrow)
{
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 33.0f);
    EXPECT_LT (label().getRight(), 130);

    window.window.setSize (909, 500);
    box.setSize (84, 28);
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 16.5f);

    box.getProperties().set (styleProperty::fontScale, 0.8);
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 13.2f);

    box.setSize (84, 10);
    EXPECT_FLOAT_EQ (window.style.getComboBoxFont (box).getHeight(), 8.0f);
}

TEST_F (ComboBoxDrawingTest, ItsMenusEntriesAreAsHighAsMostOfTheBox)
{
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getStandardItemHeight(), 48);
    box.setSize (169, 41);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getStandardItemHeight(), 35);
}

TEST_F (ComboBoxDrawingTest, ItsMenuHasAtLeastTheColumnsAskedFor)
{
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMinimumNumColumns(), 1);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMaximumNumColumns(), 1);
    box.getProperties().set (styleProperty::numCol, 2);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMinimumNumColumns(), 2);
    EXPECT_EQ (window.style.getOptionsForComboBoxPopupMenu (box, label()).getMaximumNumColumns(), 2);
}

//==============================================================================
TEST (OrloColoursTest, TheProductsFixedColoursAreAsAgreed)
{
    const PluginLookAndFeel style;
    const std::pair<int, juce::uint32> expected[] {
        { 0x2731072, 0xFF232323 }, { 0x2733209, 0xFF101010 }, { 0x2733300, 0xFF101010 }, { 0x2733301, 0xFFBBBBBB },
        { 0x2733302, 0xFF101010 }, { 0x2733303, 0xFF101010 }, { 0x2733304, 0xFFFFFFFF }, { 0x8994010, 0x80808080 },
    };

    for (const auto& [id, argb] : expected)
        EXPECT_EQ (style.findColour (id).getARGB(), argb) << std::hex << id;

    EXPECT_EQ (style.findColour (0x2733305), juce::Colour (0xFF555555).darker (0.1f));

    for (const auto id : { 0x2731200, 0x2731233, 0x2731333, 0x2765412, 0x2765413, 0x2739812 })
        EXPECT_TRUE (style.isColourSpecified (id)) << std::hex << id;
}

TEST (OrloColoursTest, TheGripIsDrawnInTheColourThatTheViewGivesIt)
{
    PluginLookAndFeel style;
    const auto draw = [&style]
    {
        return findInk (
            drawnImage (50, 50, [&] (juce::Graphics& g) { style.drawCornerResizer (g, 50, 50, false, false); }));
    };

    EXPECT_TRUE (juce::Rectangle<int> (50, 50).contains (draw()));
    EXPECT_GT (draw().getWidth(), 20);
    style.setColour (colourId::cornerGrip, juce::Colours::transparentWhite);
    EXPECT_TRUE (draw().isEmpty());
}
} // namespace
} // namespace mk::orlo
