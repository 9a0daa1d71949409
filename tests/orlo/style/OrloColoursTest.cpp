// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/style/OrloColours.h"
#include "orlo/look/PluginLookAndFeel.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo
{
namespace
{
using test::drawnImage;
using test::findInk;

TEST (OrloColoursTest, TheProductsFixedColoursHaveTheirValues)
{
    const PluginLookAndFeel style;
    const std::pair<int, juce::uint32> expected[] {
        { colourId::controlBackground, 0xFF232323 },  { colourId::rulerBackground, 0xFF101010 },
        { colourId::keyboardBackground, 0xFF101010 }, { colourId::keyboardWhiteKey, 0xFFBBBBBB },
        { colourId::keyboardBlackKey, 0xFF101010 },   { colourId::keyboardSeparator, 0xFF101010 },
        { colourId::keyboardHighlight, 0xFFFFFFFF },  { colourId::cornerGrip, 0x80808080 },
    };

    for (const auto& [id, argb] : expected)
        EXPECT_EQ (style.findColour (id).getARGB(), argb) << std::hex << id;

    EXPECT_EQ (style.findColour (colourId::keyboardLabel), juce::Colour (0xFF555555).darker (0.1f));

    for (const int id : std::initializer_list<int> { colourId::sideBarBackground,
                                                     colourId::buttonBarFrame,
                                                     colourId::barButtonOutline,
                                                     colourId::readoutBackground,
                                                     colourId::readoutText,
                                                     colourId::arrowsBackground })
        EXPECT_TRUE (style.isColourSpecified (id)) << std::hex << id;
}

TEST (OrloColoursTest, TheGripIsDrawnInTheColourThatTheViewSets)
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
