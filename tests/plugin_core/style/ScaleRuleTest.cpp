// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/look/LookAndFeel.h"
#include "plugin_core/style/StyleProperties.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using Window = orlo::test::StyledWindow<LookAndFeel>;

TEST (ScaleRuleTest, TheCornerRadiusIsTenAtTheDesignWidthAndFollowsTheWidth)
{
    EXPECT_NEAR (scaleRule::cornerRadius (1818), 10.0f, 1e-4f);
    EXPECT_NEAR (scaleRule::cornerRadius (909), 5.0f, 1e-4f);
    EXPECT_NEAR (scaleRule::cornerRadius (100), 0.550055f, 1e-5f);
}

TEST (ScaleRuleTest, AComponentOutsideAWindowHasARadiusOfTen)
{
    const juce::Component alone;
    EXPECT_FLOAT_EQ (scaleRule::cornerRadius (alone), 10.0f);
}

TEST (ScaleRuleTest, AComponentDeepInAWindowFollowsTheWindowsWidth)
{
    Window window (909);
    juce::Component panel, child;
    panel.addAndMakeVisible (child);
    window.add (panel, { 10, 10, 300, 300 });

    EXPECT_EQ (scaleRule::editorWidthAbove (child), 909);
    EXPECT_NEAR (scaleRule::cornerRadius (child), 5.0f, 1e-4f);
    EXPECT_NEAR (scaleRule::textHeight (child), 16.5f, 1e-4f);
}

TEST (ScaleRuleTest, TheWindowItselfIsInNoWindow)
{
    const Window window (909);
    EXPECT_FALSE (scaleRule::editorWidthAbove (window.window).has_value());
}

TEST (ScaleRuleTest, EachSizeClassHasItsTextHeight)
{
    const std::pair<int, float> expected[] { { 0, 55.0f }, { 1, 40.0f },  { 2, 33.0f }, { 3, 33.0f },
                                             { 4, 25.0f }, { -1, 36.0f }, { 5, 36.0f }, { 99, 36.0f } };

    for (const auto& [category, height] : expected)
    {
        EXPECT_FLOAT_EQ (scaleRule::categoryHeight (category), height) << category;
        EXPECT_FLOAT_EQ (scaleRule::textHeight (category, 1.0, std::nullopt), height) << category;
        EXPECT_FLOAT_EQ (scaleRule::textHeight (category, 1.0, 1818), height) << category;
        EXPECT_FLOAT_EQ (scaleRule::textHeight (category, 1.0, 3636), 2.0f * height) << category;
    }
}

TEST (ScaleRuleTest, AbsentPropertiesReadAsClassTwoAndAFactorOfOne)
{
    juce::Component component;
    EXPECT_EQ (scaleRule::categoryOf (component), 2);
    EXPECT_FLOAT_EQ (scaleRule::textHeight (component), 33.0f);

    component.getProperties().set (styleProperty::cat, 4);
    EXPECT_FLOAT_EQ (scaleRule::textHeight (component), 25.0f);

    component.getProperties().set (styleProperty::fontScale, 0.5);
    EXPECT_FLOAT_EQ (scaleRule::textHeight (component), 12.5f);
}

TEST (ScaleRuleTest, LegibleTextIsAtLeastFifteenHighButNeverHigherThanItsComponent)
{
    Window window (400);
    juce::Component component;
    component.getProperties().set (styleProperty::cat, 4);

    window.add (component, { 0, 0, 100, 40 });
    EXPECT_FLOAT_EQ (scaleRule::legibleTextHeight (component), 15.0f);

    component.setSize (100, 9);
    EXPECT_FLOAT_EQ (scaleRule::legibleTextHeight (component), 9.0f);

    window.window.setSize (3636, 600);
    component.setSize (100, 400);
    EXPECT_FLOAT_EQ (scaleRule::legibleTextHeight (component), 50.0f);
}
} // namespace
} // namespace mk::pluginCore
