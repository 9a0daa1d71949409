// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/Palette.h"
#include "plugin_core/look/LookAndFeel.h"

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
        { 0xC89320, 0xFF111111 },  { 0xC89321, 0xFFEEEEEE },  { 0xC89B10, 0xFF111111 },  { 0xC89B11, 0xFFEEEEEE },
        { 0xCBDEF31, 0xFF0C0C0C }, { 0xCBDEF32, 0xFFEEEEEE }, { 0xC32AADA, 0xFF111111 }, { 0xC32AADB, 0xFFAAAAAA },
        { 0xC32AADC, 0xFFF2F2F2 }, { 0x6780200, 0xFF0C0C0C }, { 0xC324433, 0xFF111111 }, { 0xC321192, 0xFF111111 },
        { 0xC19910, 0xFF111111 },
    };

    for (const auto& [id, argb] : expected)
        EXPECT_EQ (style.findColour (id).getARGB(), argb) << std::hex << id;
}

TEST (PaletteTest, EveryFrameworkIdHasAColour)
{
    const LookAndFeel style;

    for (const auto id : { 0xCEF0210,
                           0xCEF14A0,
                           0xCBDEF33,
                           0xC32AADD,
                           0xC32AADE,
                           0x1004011,
                           0x1004012,
                           0x1004013,
                           0xC324434,
                           0xC321193,
                           0xC321194,
                           0xC19911,
                           0x1320100,
                           0x1320101,
                           0x1320102,
                           0x1320103,
                           0x1320104,
                           0x1320105,
                           0x1320106 })
        EXPECT_TRUE (style.isColourSpecified (id)) << std::hex << id;
}

TEST (PaletteTest, NoIdIsSetTwice)
{
    std::set<int> seen;

    for (const auto& setting : getFrameworkColours())
        EXPECT_TRUE (seen.insert (setting.id).second) << std::hex << setting.id;
}

TEST (PaletteTest, ARaisedColourHasEachChannelMovedTowardsItsInverse)
{
    EXPECT_EQ (raised (juce::Colour (0xFF000000)).getARGB(), 0xFF0E0E0Eu);
    EXPECT_EQ (raised (juce::Colour (0xFFFFFFFF)).getARGB(), 0xFFFFFFFFu);
    EXPECT_EQ (raised (juce::Colour (0xFF232323)).getARGB(), 0xFF2F2F2Fu);
    EXPECT_EQ (raised (juce::Colour (0x80102030)).getARGB(), 0x801E2D3Cu);
}

TEST (PaletteTest, TextCanBeReadOnEveryGroundItStandsOn)
{
    // The contrast of WCAG 2: 4.5 is asked for text, 3 for large text and icons.
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
