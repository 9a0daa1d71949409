// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/ColourMapMenuItem.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "tests/support/StyledWindow.h"
#include "tests/support/TestEditor.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{

[[nodiscard]] juce::Rectangle<int> idealSizeOf (ColourMapMenuItem& item)
{
    int width = 0, height = 0;
    item.getIdealSize (width, height);
    return { width, height };
}

TEST (ColourMapMenuItemTest, ItsWidthScalesWithTheEditorAndItsHeightIsASeventhOfIt)
{
    EXPECT_EQ (ColourMapMenuItem::getIdealBounds (1818), juce::Rectangle<int> (350, 50));
    EXPECT_EQ (ColourMapMenuItem::getIdealBounds (909), juce::Rectangle<int> (175, 25));
    EXPECT_EQ (ColourMapMenuItem::getIdealBounds (1050), juce::Rectangle<int> (196, 28)) << "truncated, not rounded";
    EXPECT_EQ (ColourMapMenuItem::getIdealBounds (std::nullopt), juce::Rectangle<int> (350, 50));
    EXPECT_EQ (ColourMapMenuItem::getIdealBounds (0), juce::Rectangle<int>());
}

TEST (ColourMapMenuItemTest, ItFindsItsEditorThroughItsOwnParentsOrThoseOfTheBox)
{
    auto box = std::make_unique<juce::Component>();
    ColourMapMenuItem item (3, *box);
    EXPECT_EQ (idealSizeOf (item), juce::Rectangle<int> (350, 50));

    test::TestEditor boxEditor (909, 500);
    boxEditor.addAndMakeVisible (*box);
    EXPECT_EQ (idealSizeOf (item), juce::Rectangle<int> (175, 25));

    test::TestEditor own (3636, 2000);
    own.addAndMakeVisible (item);
    EXPECT_EQ (idealSizeOf (item), juce::Rectangle<int> (700, 100));

    own.removeChildComponent (&item);
    box.reset();
    EXPECT_EQ (idealSizeOf (item), juce::Rectangle<int> (350, 50));
}

TEST (ColourMapMenuItemTest, ThePreviewFillsItAndLeavesTheMouseToTheMenu)
{
    juce::Component box;
    ColourMapMenuItem item (3, box);
    item.setVisible (true);
    item.setSize (350, 50);
    EXPECT_EQ (item.getPreview().getBounds(), juce::Rectangle<int> (350, 50));
    EXPECT_EQ (item.getComponentAt (10, 10), &item);
    EXPECT_EQ (item.getPreview().getLabel().getText(), "plasma");
}

TEST (ColourMapMenuItemTest, TheHighlightLightensIt)
{
    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::Component box;
    ColourMapMenuItem item (0, box);
    window.add (item, { 0, 0, 350, 50 });

    const auto plain = test::snapshotOf (item).getPixelAt (100, 25);
    item.setHighlighted (true);
    const auto lit = test::snapshotOf (item).getPixelAt (100, 25);
    EXPECT_GT (lit.getBrightness(), plain.getBrightness());
    EXPECT_LE (test::distance (lit, plain), 0x0D);
    item.setHighlighted (false);
    EXPECT_EQ (test::snapshotOf (item).getPixelAt (100, 25), plain);
}

TEST (ColourMapMenuItemTest, TheHighlightIsAFaintRoundedRectangleOverAllOfIt)
{
    test::StyledWindow<PluginLookAndFeel> window { 1818, 1000 };
    juce::Component box;
    ColourMapMenuItem item (0, box);
    window.add (item, { 0, 0, 350, 50 });

    const auto paintOver = [&item]
    { return test::drawnImage (350, 50, [&item] (juce::Graphics& g) { item.paintOverChildren (g); }); };

    EXPECT_TRUE (test::findInk (paintOver()).isEmpty());
    item.setHighlighted (true);
    const auto image = paintOver();
    const auto colour = window.style.findColour (juce::PopupMenu::highlightedTextColourId);
    const auto centre = image.getPixelAt (175, 25);
    EXPECT_EQ (int (centre.getAlpha()), 0x0D);
    EXPECT_LE (test::distance (centre.withAlpha (juce::uint8 (255)), colour), 20) << "low alpha, so few bits remain";
    EXPECT_EQ (image.getPixelAt (100, 10), centre);
    EXPECT_EQ (image.getPixelAt (300, 40), centre);

    // The corner radius is 7 pixels: 0.15 of the height, truncated.
    EXPECT_EQ (image.getPixelAt (0, 0).getAlpha(), 0);
    EXPECT_EQ (image.getPixelAt (1, 1).getAlpha(), 0);
    EXPECT_GT (image.getPixelAt (0, 8).getAlpha(), 0);
    EXPECT_GT (image.getPixelAt (8, 0).getAlpha(), 0);
    EXPECT_GT (image.getPixelAt (349, 25).getAlpha(), 0);
}

} // namespace
} // namespace mk::orlo
