// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/ColourLookup.h"

#include <gtest/gtest.h>

#include <array>

namespace mk::pluginCore::test
{
namespace
{

TEST (ColourLookup, AsksTheComponentThenItsLookThenTakesTheFallback)
{
    constexpr int colourId = 0x7654321;
    juce::LookAndFeel_V4 look;
    juce::Component component;
    component.setLookAndFeel (&look);
    EXPECT_EQ (findColourOr (component, colourId, juce::Colours::red), juce::Colours::red);

    look.setColour (colourId, juce::Colours::green);
    EXPECT_EQ (findColourOr (component, colourId, juce::Colours::red), juce::Colours::green);

    component.setColour (colourId, juce::Colours::blue);
    EXPECT_EQ (findColourOr (component, colourId, juce::Colours::red), juce::Colours::blue);
    component.setLookAndFeel (nullptr);
}

TEST (ColourLookup, FallsBackToTheColoursOfOurOwnLook)
{
    constexpr std::array<ColourSetting, 2> settings { { { 0x7654321, 0xff102030 }, { 0x7654322, 0xff405060 } } };
    juce::LookAndFeel_V4 look;
    juce::Component component;
    component.setLookAndFeel (&look);
    EXPECT_EQ (findColourOr (component, settings[1].id, settings).getARGB(), settings[1].argb);
    EXPECT_TRUE (findColourOr (component, 0x7654323, settings).isTransparent()) << "an unknown id";

    look.setColour (settings[1].id, juce::Colours::green);
    EXPECT_EQ (findColourOr (component, settings[1].id, settings), juce::Colours::green);
    component.setLookAndFeel (nullptr);
}

} // namespace
} // namespace mk::pluginCore::test
