// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/AnimatedTextButton.h"
#include "plugin_core/style/MouseFade.h"
#include "tests/support/Mouse.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using orlo::test::makeMouseEvent;
using State = GenericComponentAnimator::State;

TEST (AnimatedTextButtonTest, TheStyleReachesTheFadeOfTheMouse)
{
    AnimatedTextButton button ("Scroll");
    EXPECT_EQ (button.getButtonText(), "Scroll");
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (button), 0.0f);

    auto& animator = button.getMouseAnimator();
    animator.mouseEnter (makeMouseEvent (button, { 5.0f, 5.0f }));
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (button), 0.0f);
    animator.timerCallback();
    EXPECT_FLOAT_EQ (mouseFade::hoverFactor (button),
                     float (ComponentMouseAnimator::defaultTickMs) / float (mouseFade::enterMs));
}

TEST (AnimatedTextButtonTest, AClickStartsTheAnimationAndARightClickDoesNothing)
{
    AnimatedTextButton button ("Scroll");
    button.setSize (100, 20);
    button.setClickingTogglesState (true);

    const juce::ModifierKeys right (juce::ModifierKeys::rightButtonModifier);
    button.mouseDown (makeMouseEvent (button, { 5.0f, 5.0f }, right));
    button.mouseUp (makeMouseEvent (button, { 5.0f, 5.0f }, right));
    EXPECT_FALSE (button.getToggleState());
    EXPECT_FALSE (button.isDown());
    EXPECT_EQ (button.getMouseAnimationTimes().state, State::idle);

    juce::Button& clickable = button;
    clickable.setToggleState (true, juce::sendNotificationSync);
    EXPECT_EQ (button.getMouseAnimationTimes().state, State::clicked);
}
} // namespace
} // namespace mk::pluginCore
