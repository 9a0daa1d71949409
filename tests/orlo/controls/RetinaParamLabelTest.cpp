// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/controls/RetinaParamLabel.h"

#include "orlo/look/PluginLookAndFeel.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Mouse.h"
#include "tests/support/StyledWindow.h"

#include <gtest/gtest.h>

#include <thread>

namespace mk::orlo::test
{
namespace
{
class RetinaParamLabelTest : public testing::Test
{
protected:
    RetinaParamLabelTest() { window.add (label, { 10, 10, 42, 40 }); }

    void click (juce::ModifierKeys modifiers, juce::Point<float> release = { 5.0f, 5.0f })
    {
        label.mouseDown (makeMouseEvent (label, { 5.0f, 5.0f }, modifiers));
        label.mouseUp (makeMouseEvent (label, release, modifiers));
    }

    AudioPluginAudioProcessor processor;
    juce::RangedAudioParameter& parameter = *processor.getParameterState().getParameter (Params::id::hiDPI);
    StyledWindow<PluginLookAndFeel> window { 1818 };
    RetinaParamLabel label { processor.getParameterState(), Params::id::hiDPI };
};

constexpr auto leftButton = juce::ModifierKeys::leftButtonModifier;

TEST_F (RetinaParamLabelTest, AClickTogglesBetweenTheTwoChoices)
{
    EXPECT_EQ (label.getText(), "Normal");
    click (leftButton);
    EXPECT_EQ (label.getText(), "2x");
    EXPECT_FLOAT_EQ (parameter.getValue(), 1.0f);
    click (leftButton);
    EXPECT_EQ (label.getText(), "Normal");
    EXPECT_FLOAT_EQ (parameter.getValue(), 0.0f);
}

TEST_F (RetinaParamLabelTest, AClickIsOneGestureAndOneUndoTransaction)
{
    processor.applyInitialSettings();
    GestureRecorder host (parameter);
    click (leftButton);
    EXPECT_EQ (host.take(), "[.]");

    click (leftButton);
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (parameter.getValue(), 1.0f);
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_FLOAT_EQ (parameter.getValue(), 0.0f);
}

TEST_F (RetinaParamLabelTest, OtherClicksChangeNothing)
{
    GestureRecorder host (parameter);
    click (juce::ModifierKeys::rightButtonModifier);
    click (juce::ModifierKeys::middleButtonModifier);
    click (leftButton | juce::ModifierKeys::ctrlModifier);
    click (leftButton, { 500.0f, 5.0f });
    EXPECT_EQ (host.take(), "");
}

TEST_F (RetinaParamLabelTest, KeysChangeIt)
{
    EXPECT_TRUE (label.keyPressed (juce::KeyPress (juce::KeyPress::spaceKey)));
    EXPECT_EQ (label.getText(), "2x");
    EXPECT_TRUE (label.keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_EQ (label.getText(), "Normal");
    EXPECT_FALSE (label.keyPressed (juce::KeyPress ('x')));
    EXPECT_EQ (label.getText(), "Normal");
}

TEST_F (RetinaParamLabelTest, FollowsTheParameterFromAnyThread)
{
    std::thread ([this] { parameter.setValueNotifyingHost (1.0f); }).join();
    EXPECT_TRUE (pumpUntil ([this] { return label.getText() == "2x"; }));
}

TEST_F (RetinaParamLabelTest, IsASwitchToScreenReaders)
{
    label.setTooltip ("Help");
    const auto handler = label.createAccessibilityHandler();
    EXPECT_EQ (handler->getRole(), juce::AccessibilityRole::toggleButton);
    EXPECT_EQ (handler->getHelp(), "Help");
    EXPECT_FALSE (handler->getCurrentState().isChecked());
    EXPECT_TRUE (handler->getActions().invoke (juce::AccessibilityActionType::toggle));
    EXPECT_TRUE (handler->getCurrentState().isChecked());
    EXPECT_TRUE (handler->getActions().invoke (juce::AccessibilityActionType::press));
    EXPECT_FALSE (handler->getCurrentState().isChecked());
}

TEST_F (RetinaParamLabelTest, LightsUpWhenItIsOn)
{
    const auto off = snapshotOf (label).getPixelAt (21, 3);
    click (leftButton);
    const auto on = snapshotOf (label).getPixelAt (21, 3);
    EXPECT_GT (distance (off, on), 8);
}
} // namespace
} // namespace mk::orlo::test
