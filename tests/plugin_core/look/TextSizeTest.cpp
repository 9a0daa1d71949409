// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/look/TextSize.h"

#include "tests/support/TestEditor.h"

#include <gtest/gtest.h>

namespace mk::pluginCore::test
{
namespace
{

using orlo::test::TestEditor;

TEST (TextSize, OutsideAnEditorTheSizeClassAloneDecides)
{
    juce::Component component;
    EXPECT_FLOAT_EQ (getTextHeight (component), 33.0f);

    const std::pair<int, float> expected[] { { 0, 55.0f }, { 1, 40.0f },  { 2, 33.0f }, { 3, 33.0f },
                                             { 4, 25.0f }, { -1, 36.0f }, { 5, 36.0f } };

    for (const auto& [sizeClass, height] : expected)
    {
        component.getProperties().set ("cat", sizeClass);
        EXPECT_FLOAT_EQ (getTextHeight (component), height) << sizeClass;
    }
}

TEST (TextSize, FollowsTheWidthOfTheEditorAndTheFontScale)
{
    TestEditor editor { 1818, 1000 };
    juce::Component holder, component;
    editor.addAndMakeVisible (holder);
    holder.addAndMakeVisible (component);
    component.getProperties().set ("cat", 4);
    EXPECT_FLOAT_EQ (getTextHeight (component), 25.0f);

    editor.setSize (909, 100);
    EXPECT_FLOAT_EQ (getTextHeight (component), 12.5f);

    component.getProperties().set ("fontScale", 2.0);
    EXPECT_FLOAT_EQ (getTextHeight (component), 25.0f);
}

TEST (TextSize, LegibleTextIsAtLeastFifteenPixelsButNotHigherThanItsComponent)
{
    TestEditor editor { 909, 500 };
    juce::Component component;
    editor.addAndMakeVisible (component);
    component.getProperties().set ("cat", 4);

    component.setSize (10, 100);
    EXPECT_FLOAT_EQ (getLegibleTextHeight (component), 15.0f);

    component.setSize (10, 9);
    EXPECT_FLOAT_EQ (getLegibleTextHeight (component), 9.0f);

    editor.setSize (3636, 2000);
    component.setSize (10, 100);
    EXPECT_FLOAT_EQ (getLegibleTextHeight (component), 50.0f);
}

TEST (TextSize, AColourComesFromTheComponentThenFromTheLookAndFeelThenFromTheFallback)
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
