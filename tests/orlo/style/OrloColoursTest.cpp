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
