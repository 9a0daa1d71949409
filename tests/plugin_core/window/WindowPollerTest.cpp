// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/window/WindowPoller.h"

#include "tests/support/FakeWindow.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Screen.h"
#include "tests/support/Window.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace mk::pluginCore
{
namespace
{
/** More steps than the poller stays fast for after a window has changed. */
constexpr int numStepsUntilIdle = 40;

class WindowPollerTest : public testing::Test
{
protected:
    void SetUp() override
    {
        if (! orlo::test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";
    }

    juce::SharedResourcePointer<WindowPoller> poller;
};
} // namespace

TEST_F (WindowPollerTest, CallsEveryClientAtEachStep)
{
    juce::Component component;
    int numFirst = 0, numSecond = 0;
    const WindowPoller::Client first (component, [&] (bool) { ++numFirst; });
    auto second = std::make_optional<WindowPoller::Client> (component, [&] (bool) { ++numSecond; });
    poller->pollNow();
    poller->pollNow();
    EXPECT_EQ (numFirst, 2);
    EXPECT_EQ (numSecond, 2);

    second.reset();
    poller->pollNow();
    EXPECT_EQ (numFirst, 3);
    EXPECT_EQ (numSecond, 2);
}

TEST_F (WindowPollerTest, StepsClientsThatBelongToNoWindow)
{
    int numSteps = 0;
    const WindowPoller::Client client ([&] { ++numSteps; });
    poller->pollNow();
    EXPECT_EQ (numSteps, 1);
}

TEST_F (WindowPollerTest, StepsByItself)
{
    juce::Component component;
    int numSteps = 0;
    const WindowPoller::Client client (component, [&] (bool) { ++numSteps; });
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return numSteps >= 3; }));
}

TEST_F (WindowPollerTest, ReportsAPossibleChangeWhenTheComponentsWindowIsAnother)
{
    orlo::test::FakeWindow window;
    juce::Component component;
    window.addAndMakeVisible (component);
    std::optional<bool> mayHaveChanged;
    const WindowPoller::Client client (component, [&] (bool mayHave) { mayHaveChanged = mayHave; });

    poller->pollNow();
    EXPECT_EQ (mayHaveChanged, true) << "the first step reports every window as changed";
    poller->pollNow();
    EXPECT_EQ (mayHaveChanged, false);

    window.removeFromDesktop();
    poller->pollNow();
    EXPECT_EQ (mayHaveChanged, true);
    poller->pollNow();
    EXPECT_EQ (mayHaveChanged, false);
}

TEST_F (WindowPollerTest, ReportsAPossibleChangeFromTimeToTime)
{
    juce::Component component;
    int numLooks = 0;
    const WindowPoller::Client client (component, [&] (bool mayHaveChanged) { numLooks += int (mayHaveChanged); });

    for (int step = 0; step < numStepsUntilIdle; ++step)
        poller->pollNow();

    EXPECT_GE (numLooks, 2);
    EXPECT_LE (numLooks, 5);
}

TEST_F (WindowPollerTest, PollsFastOnlyWhileTheMouseMoves)
{
    orlo::test::Window window { 400, 300 };
    juce::Component child;
    window.addAndMakeVisible (child);
    child.setBounds (0, 0, 200, 200);
    const WindowPoller::Client client (window, [] (bool) {});
    orlo::test::Screen::getInstance().moveMouseTo ({ 800, 600 });
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return poller->getPeriodMs() == WindowPoller::idleMs; }));

    ASSERT_TRUE (window.moveMouseTo (child, { 100.0f, 100.0f }));
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return poller->getPeriodMs() == WindowPoller::busyMs; }));
    EXPECT_TRUE (orlo::test::pumpUntil ([&] { return poller->getPeriodMs() == WindowPoller::idleMs; }))
        << "although the mouse is still there";
    EXPECT_EQ (juce::Desktop::getInstance().getMainMouseSource().getComponentUnderMouse(), &child);
    EXPECT_EQ (WindowPoller::idleMs, 100);
    EXPECT_EQ (WindowPoller::busyMs, 40);
}

TEST_F (WindowPollerTest, LetsAClientDeleteItselfAndOthers)
{
    juce::Component component;
    std::unique_ptr<WindowPoller::Client> doomed;
    int numCalls = 0;
    std::unique_ptr<WindowPoller::Client> first = std::make_unique<WindowPoller::Client> (component,
                                                                                          [&] (bool)
                                                                                          {
                                                                                              ++numCalls;
                                                                                              doomed.reset();
                                                                                              first.reset();
                                                                                          });
    doomed = std::make_unique<WindowPoller::Client> (component, [&] (bool) { ++numCalls; });
    poller->pollNow();
    poller->pollNow();
    EXPECT_EQ (numCalls, 1);
}

} // namespace mk::pluginCore
