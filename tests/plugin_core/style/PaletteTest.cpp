// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/Palette.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/ColourIds.h"

#include <gtest/gtest.h>

#include <set>

namespace mk::pluginCore
{
namespace
{
TEST (PaletteTest, TheFrameworksFixedColoursAreAsAgreed)
{
    const LookAndFeel style;
    const std::pair<int, juce::uint32> expected[] {
        { colourId::overlayBackground, 0xFF111111 },    { colourId::overlayText, 0xFFEEEEEE },
        { colourId::dialogBackground, 0xFF111111 },     { colourId::dialogText, 0xFFEEEEEE },
        { colourId::textViewBackground, 0xFF0C0C0C },   { colourId::textViewOutline, 0xFFEEEEEE },
        { colourId::tooltipBackground, 0xFF111111 },    { colourId::tooltipText, 0xFFAAAAAA },
        { colourId::tooltipBoldText, 0xFFF2F2F2 },      { colourId::ground, 0xFF0C0C0C },
        { colourId::presetsBarBackground, 0xFF111111 }, { colourId::headerBackground, 0xFF111111 },
        { colourId::fileListBackground, 0xFF111111 },
    };

    for (const auto& [id, argb] : expected)
        EXPECT_EQ (style.findColour (id).getARGB(), argb) << std::hex << id;
}

TEST (PaletteTest, EveryFrameworkIdHasAColour)
{
    const LookAndFeel style;

    for (const int id : std::initializer_list<int> { colourId::focusOutline,
                                                     colourId::linkText,
                                                     colourId::textViewText,
                                                     colourId::tooltipDefaultText,
                                                     colourId::tooltipOutline,
                                                     juce::DrawableButton::backgroundColourId,
                                                     juce::DrawableButton::backgroundOnColourId,
                                                     juce::DrawableButton::textColourOnId,
                                                     colourId::presetsBarText,
                                                     colourId::headerText,
                                                     colourId::headerOutline,
                                                     colourId::fileListSecondaryText,
                                                     colourId::pathButtonBackground,
                                                     colourId::pathButtonBackgroundOver,
                                                     colourId::pathButtonBackgroundDown,
                                                     colourId::pathButtonPath,
                                                     colourId::pathButtonPathOver,
                                                     colourId::pathButtonPathDown,
                                                     colourId::pathButtonFocusOutline })
        EXPECT_TRUE (style.isColourSpecified (id)) << std::hex << id;
}

TEST (PaletteTest, NoIdIsSetTwice)
{
    std::set<int> seen;

    for (const auto& setting : getFrameworkColours())
        EXPECT_TRUE (seen.insert (setting.id).second) << std::hex << setting.id;

    EXPECT_TRUE (seen.contains (colourId::overlayBackground));
    EXPECT_TRUE (seen.contains (juce::DirectoryContentsDisplayComponent::highlightedTextColourId));
}

TEST (PaletteTest, ARaisedColourHasEachChannelMovedTowardsItsInverse)
{
    EXPECT_EQ (raised (juce::Colour (0xFF000000)).getARGB(), 0xFF0E0E0Eu);
    EXPECT_EQ (raised (juce::Colour (0xFFFFFFFF)).getARGB(), 0xFFFFFFFFu);
    EXPECT_EQ (raised (juce::Colour (0xFF232323)).getARGB(), 0xFF2F2F2Fu);
    EXPECT_EQ (raised (juce::Colour (0x80102030)).getARGB(), 0x801E2D3Cu);
}

TEST (PaletteTest, TextIsReadableOnEveryBackgroundItHas)
{
    // WCAG 2 requires a contrast of 4.5 for text, and of 3 for large text and icons.
    const auto luminance = [] (juce::uint32 argb)
    {
        const auto linear = [] (float c)
        { return c <= 0.03928f ? c / 12.92f : std::pow ((c + 0.055f) / 1.055f, 2.4f); };
        const juce::Colour colour (argb);
        return 0.2126f * linear (colour.getFloatRed()) + 0.7152f * linear (colour.getFloatGreen())
               + 0.0722f * linear (colour.getFloatBlue());
    };
    const auto contrast = [&luminance] (juce::uint32 text, juce::uint32 ground)
    { return (luminance (text) + 0.05f) / (luminance (ground) + 0.05f); };

    for (const auto ground : { palette::window, palette::panel, palette::menu, palette::control, palette::highlight })
    {
        EXPECT_GE (contrast (palette::text, ground), 7.0f);
        EXPECT_GE (contrast (palette::softText, ground), 4.5f);
        EXPECT_GE (contrast (palette::accent, ground), 4.5f);
    }

    for (const auto ground : { palette::accentDeep, palette::accentFill })
        EXPECT_GE (contrast (palette::text, ground), 4.5f);

    EXPECT_GE (contrast (palette::text, palette::accentMid), 3.0f);
    EXPECT_GE (contrast (palette::quietText, palette::panel), 4.5f);
}
} // namespace
} // namespace mk::pluginCore
