// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/ColourLookup.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace mk::pluginCore::test
