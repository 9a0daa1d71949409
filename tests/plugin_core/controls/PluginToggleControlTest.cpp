// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/PluginToggleControl.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/PeerMouse.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::pluginCore
{
namespace
{
using orlo::test::PeerMouse;

class PluginToggleControlTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (! orlo::test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "no display";

        window = std::make_unique<orlo::test::Window> (300, 200);
        window->addAndMakeVisible (control);
        control.setBounds (50, 50, 100, 40);
    }

    void TearDown() override { window.reset(); }

    void click (int modifiers = PeerMouse::left)
    {
        PeerMouse (*window).click (control.getButton(), { 20.0f, 20.0f }, modifiers);
        orlo::test::pumpPending();
    }

    orlo::test::TestProcessor processor;
    std::unique_ptr<orlo::test::Window> window;
    PluginToggleControl control { processor,
                                  "flag",
                                  std::make_unique<ComponentIgnoringRightButton<juce::TextButton>>().release(),
                                  "off",
                                  "on" };
    orlo::test::GestureRecorder heard { processor.getParameter ("flag") };
};

TEST_F (PluginToggleControlTest, TheButtonFillsTheControlAndIsNamedAfterTheParameter)
{
    EXPECT_EQ (control.getButton().getBounds(), juce::Rectangle<int> (100, 40));
    EXPECT_EQ (control.getButton().getTitle(), "Flag");
    EXPECT_EQ (control.getButton().getAccessibilityHandler()->getHelp(), "off");
}

TEST_F (PluginToggleControlTest, TheTooltipFollowsTheState)
{
    EXPECT_EQ (control.getButton().getTooltip(), "off");
    click();
    EXPECT_EQ (control.getButton().getTooltip(), "on");
    processor.setValue ("flag", 0.0f);
    EXPECT_EQ (control.getButton().getTooltip(), "off");
    control.getButton().setTooltip ("something else");
    control.lookAndFeelChanged();
    EXPECT_EQ (control.getButton().getTooltip(), "off");
}

TEST_F (PluginToggleControlTest, EachClickIsOneGestureAndOneTransaction)
{
    click();
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 1.0f);
    EXPECT_EQ (heard.take(), "[.]");
    click();
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 0.0f);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 1.0f);
    EXPECT_TRUE (control.getButton().getToggleState());
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 0.0f);
}

TEST_F (PluginToggleControlTest, NeitherTheRightButtonNorCtrlTogglesIt)
{
    click (PeerMouse::right);
    click (PeerMouse::left | PeerMouse::ctrl);
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 0.0f);
    EXPECT_EQ (heard.take(), "");
}

TEST_F (PluginToggleControlTest, TheKeyboardTogglesIt)
{
    juce::Component& button = control.getButton();
    EXPECT_TRUE (button.getWantsKeyboardFocus());
    EXPECT_TRUE (button.keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_TRUE (orlo::test::pumpUntil ([this] { return processor.getValue ("flag") > 0.5f; }));
}

TEST_F (PluginToggleControlTest, AValueSetByAnotherThreadReachesTheButton)
{
    std::thread ([this] { processor.setValue ("flag", 1.0f); }).join();
    EXPECT_FALSE (control.getButton().getToggleState());
    EXPECT_TRUE (orlo::test::pumpUntil ([this] { return control.getButton().getToggleState(); }));
    EXPECT_EQ (control.getButton().getTooltip(), "on");
}

TEST_F (PluginToggleControlTest, AnUnknownParameterLeavesTheButtonAlone)
{
    PluginToggleControl unknown { processor, "nothing", std::make_unique<juce::TextButton>().release(), "off", "on" };
    unknown.getButton().setToggleState (true, juce::sendNotificationSync);
    EXPECT_EQ (unknown.getButton().getTooltip(), "on");
}

} // namespace
} // namespace mk::pluginCore
