// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/ComponentMouseAnimator.h"
#include "tests/support/Mouse.h"
#include "tests/support/Window.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using orlo::test::makeMouseEvent;
using orlo::test::pumpUntil;
using State = GenericComponentAnimator::State;

constexpr int left = juce::ModifierKeys::leftButtonModifier;
constexpr int right = juce::ModifierKeys::rightButtonModifier;
constexpr int tick = ComponentMouseAnimator::defaultTickMs;

struct CountingAnimator final : public ComponentMouseAnimator
{
    using ComponentMouseAnimator::ComponentMouseAnimator;

    void update() override
    {
        ++numUpdates;
        ComponentMouseAnimator::update();
    }

    int numUpdates = 0;
};

class ComponentMouseAnimatorTest : public ::testing::Test
{
protected:
    [[nodiscard]] juce::MouseEvent event (int modifiers = 0)
    {
        return makeMouseEvent (component, { 5.0f, 5.0f }, juce::ModifierKeys (modifiers));
    }

    [[nodiscard]] State state() const { return animator.getTimes().state; }

    void setAllDurations (int milliseconds)
    {
        for (size_t i = 0; i < GenericComponentAnimator::numStates; ++i)
            animator.setDuration (State (i), milliseconds);
    }

    juce::Component component;
    CountingAnimator animator { component };
};

TEST_F (ComponentMouseAnimatorTest, NothingRunsBeforeTheMouseComes)
{
    EXPECT_EQ (state(), State::idle);
    EXPECT_FALSE (animator.isTimerRunning());
    EXPECT_EQ (animator.getTickMs(), 40);
}

TEST_F (ComponentMouseAnimatorTest, EachEventStartsItsStateAndItsCounter)
{
    setAllDurations (1000);
    animator.mouseEnter (event());
    EXPECT_EQ (state(), State::entered);
    EXPECT_EQ (animator.getTimerInterval(), tick);
    animator.timerCallback();
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::entered)], tick);

    animator.mouseDown (event (left));
    EXPECT_EQ (state(), State::pressed);
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::pressed)], 0);
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::entered)], tick);

    animator.click();
    EXPECT_EQ (state(), State::clicked);
    animator.mouseUp (event (left));
    EXPECT_EQ (state(), State::left) << "the real mouse is elsewhere";
}

TEST_F (ComponentMouseAnimatorTest, TheSameEventAgainDoesNotStartItsFadeAgain)
{
    setAllDurations (1000);
    animator.mouseDown (event (left));
    animator.timerCallback();
    animator.mouseDown (event (left));
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::pressed)], tick);
}

TEST_F (ComponentMouseAnimatorTest, ComingInAfterAnythingElseStartsTheFadeAgain)
{
    setAllDurations (1000);
    animator.mouseEnter (event());
    animator.timerCallback();
    animator.mouseEnter (event());
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::entered)], tick);

    animator.mouseDown (event (left));
    animator.mouseEnter (event());
    EXPECT_EQ (state(), State::entered);
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::entered)], 0);
}

TEST_F (ComponentMouseAnimatorTest, ARightClickIsNoPressAndNoRelease)
{
    setAllDurations (1000);
    animator.mouseEnter (event());
    animator.timerCallback();
    animator.mouseDown (event (right));
    EXPECT_EQ (state(), State::entered);
    animator.mouseUp (event (right));
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::released)], tick);

    animator.mouseDown (event (left));
    animator.mouseUp (event (left));
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::released)], 0);
}

TEST_F (ComponentMouseAnimatorTest, AFastInAndOutEndsWithTheFadeOfLeaving)
{
    setAllDurations (3 * tick);
    animator.mouseEnter (event());
    animator.mouseExit (event());
    EXPECT_EQ (state(), State::left);
    EXPECT_FALSE (animator.isMouseInside());

    for (int i = 0; i < 2; ++i)
    {
        animator.timerCallback();
        EXPECT_EQ (state(), State::left);
        EXPECT_TRUE (animator.isTimerRunning());
    }

    animator.timerCallback();
    EXPECT_EQ (state(), State::idle);
    EXPECT_FALSE (animator.isTimerRunning());
    EXPECT_EQ (animator.numUpdates, 3);
}

TEST_F (ComponentMouseAnimatorTest, WithoutDurationsTheTimerStopsAfterItsFirstTick)
{
    animator.mouseEnter (event());
    EXPECT_TRUE (animator.isTimerRunning());
    ASSERT_TRUE (pumpUntil ([this] { return ! animator.isTimerRunning(); }));
    EXPECT_EQ (animator.numUpdates, 1);
    EXPECT_EQ (state(), State::idle);
    EXPECT_TRUE (animator.isMouseInside());
}

TEST_F (ComponentMouseAnimatorTest, ComingBackCancelsTheLeave)
{
    setAllDurations (1000);
    animator.mouseEnter (event());
    animator.mouseExit (event());
    animator.timerCallback();
    animator.mouseEnter (event());
    EXPECT_EQ (state(), State::entered);
    EXPECT_TRUE (animator.isMouseInside());
    EXPECT_EQ (animator.getTimes().elapsed[size_t (State::entered)], 0);
}

TEST_F (ComponentMouseAnimatorTest, AHiddenComponentForgetsTheMouse)
{
    component.setVisible (true);
    animator.mouseEnter (event());
    component.setVisible (false);
    EXPECT_FALSE (animator.isMouseInside());
    EXPECT_FALSE (animator.isTimerRunning());
    EXPECT_EQ (state(), State::idle);
}

TEST_F (ComponentMouseAnimatorTest, TheAnimatorMayOutliveTheComponent)
{
    auto watched = std::make_unique<juce::Component>();
    CountingAnimator longLived { *watched };
    longLived.mouseEnter (event());
    watched.reset();
    EXPECT_FALSE (longLived.isTimerRunning());
    longLived.timerCallback();
    longLived.mouseExit (event());
    EXPECT_EQ (longLived.numUpdates, 1);
}

TEST (ComponentMouseAnimatorWindowTest, MovingOntoAChildCountsAsStayingInside)
{
    if (! orlo::test::Screen::getInstance().isAvailable())
        GTEST_SKIP() << "no display";

    orlo::test::Window window (400, 300);
    juce::Component parent, child;
    window.addAndMakeVisible (parent);
    parent.setBounds (100, 100, 200, 100);
    parent.addAndMakeVisible (child);
    child.setBounds (100, 0, 100, 100);
    CountingAnimator animator { parent };
    animator.setDuration (State::entered, 100000);
    ASSERT_TRUE (window.moveMouseTo (window, { 20.0f, 20.0f }));

    ASSERT_TRUE (window.moveMouseTo (parent, { 50.0f, 50.0f }));
    ASSERT_TRUE (pumpUntil ([&] { return animator.numUpdates >= 2; })) << "the fade runs";
    const auto elapsed = animator.getTimes().elapsed[size_t (State::entered)];

    ASSERT_TRUE (window.moveMouseTo (child, { 50.0f, 50.0f }));
    ASSERT_TRUE (window.moveMouseTo (parent, { 60.0f, 50.0f }));
    EXPECT_EQ (animator.getTimes().state, State::entered);
    EXPECT_GE (animator.getTimes().elapsed[size_t (State::entered)], elapsed) << "the fade started again";

    ASSERT_TRUE (window.moveMouseTo (child, { 50.0f, 50.0f }));
    ASSERT_TRUE (window.moveMouseTo (window, { 20.0f, 20.0f }));
    EXPECT_EQ (animator.getTimes().state, State::left) << "left through the child";
}

} // namespace
} // namespace mk::pluginCore
