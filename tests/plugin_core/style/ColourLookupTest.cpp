// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/ColourLookup.h"

#include <gtest/gtest.h>

#include <array>

namespace mk::pluginCore::test
{
namespace
{

TEST (ColourLookup, AsksTheComponentThenItsLookThenTheList)
{
    constexpr std::array<ColourSetting, 2> settings { { { 0x7654321, 0xff102030 }, { 0x7654322, 0xff405060 } } };
    constexpr auto colourId = settings[1].id;
    juce::LookAndFeel_V4 look;
    juce::Component component;
    component.setLookAndFeel (&look);
    EXPECT_EQ (findColourOr (component, colourId, settings).getARGB(), settings[1].argb);
    EXPECT_TRUE (findColourOr (component, 0x7654323, settings).isTransparent()) << "an unknown id";

    look.setColour (colourId, juce::Colours::green);
    EXPECT_EQ (findColourOr (component, colourId, settings), juce::Colours::green);

    component.setColour (colourId, juce::Colours::blue);
    EXPECT_EQ (findColourOr (component, colourId, settings), juce::Colours::blue);
    component.setLookAndFeel (nullptr);
}

} // namespace
} // namespace mk::pluginCore::test
