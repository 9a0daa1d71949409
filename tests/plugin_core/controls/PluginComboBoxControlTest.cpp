// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/controls/PluginComboBoxControl.h"
#include "tests/support/GestureRecorder.h"
#include "tests/support/PeerMouse.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
using orlo::test::PeerMouse;
using orlo::test::pumpPending;
using orlo::test::pumpUntil;

class PluginComboBoxControlTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (! orlo::test::Screen::getInstance().isAvailable())
            GTEST_SKIP() << "no display";

        window = std::make_unique<orlo::test::Window> (300, 200);
        window->addAndMakeVisible (control);
        control.setBounds (50, 50, 100, 30);
    }

    void TearDown() override
    {
        juce::PopupMenu::dismissAllActiveMenus();
        EXPECT_TRUE (
            pumpUntil ([] { return juce::ModalComponentManager::getInstance()->getNumModalComponents() == 0; }));
        window.reset();
    }

    orlo::test::TestProcessor processor;
    std::unique_ptr<orlo::test::Window> window;
    PluginComboBoxControl control { processor, "choice" };
    orlo::test::GestureRecorder heard { processor.getParameter ("choice") };
};

TEST_F (PluginComboBoxControlTest, TheEntriesAreTranslatedAndTheParametersTextsAreNot)
{
    juce::LocalisedStrings::setCurrentMappings (new juce::LocalisedStrings ("\"B\" = \"deux\"", false));
    PluginComboBoxControl translated { processor, "choice" };
    juce::LocalisedStrings::setCurrentMappings (nullptr);

    EXPECT_EQ (translated.getComboBox().getText(), "deux");
    EXPECT_EQ (processor.getParameter ("choice").getCurrentValueAsText(), "B");
    translated.getComboBox().setSelectedId (3, juce::sendNotificationSync);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 2.0f);
}

TEST_F (PluginComboBoxControlTest, TheEntriesAreTheChoicesWithIdsFromOne)
{
    auto& box = control.getComboBox();
    ASSERT_EQ (box.getNumItems(), 4);

    for (int i = 0; i < 4; ++i)
    {
        EXPECT_EQ (box.getItemId (i), i + 1);
        EXPECT_EQ (box.getItemText (i), juce::String::charToString (juce::juce_wchar ('A' + i)));
    }

    EXPECT_EQ (box.getSelectedId(), 2);
    EXPECT_EQ (box.getBounds(), juce::Rectangle<int> (100, 30));
    EXPECT_EQ (box.getTitle(), "Choice");
}

TEST_F (PluginComboBoxControlTest, ReservedChoicesAreNotOffered)
{
    juce::AudioProcessorGraph owner;
    const juce::StringArray choices { "A", "B", "C", {}, {} };
    juce::AudioProcessorValueTreeState state { owner,
                                               nullptr,
                                               "PARAMS",
                                               { std::make_unique<juce::AudioParameterChoice> (
                                                   juce::ParameterID ("padded", 1), "Padded", choices, 1) } };
    PluginComboBoxControl padded { state, "padded" };
    EXPECT_EQ (padded.getComboBox().getNumItems(), 3);
    EXPECT_EQ (padded.getComboBox().getText(), "B");
    state.getParameter ("padded")->setValueNotifyingHost (1.0f);
    EXPECT_EQ (padded.getComboBox().getText(), "C");
}

TEST_F (PluginComboBoxControlTest, ALeftClickOpensTheMenuAndOthersDoNot)
{
    PeerMouse mouse (*window);
    auto& box = control.getComboBox();
    mouse.click (box, { 20.0f, 15.0f }, PeerMouse::right);
    mouse.click (box, { 20.0f, 15.0f }, PeerMouse::left | PeerMouse::ctrl);
    pumpPending();
    EXPECT_FALSE (box.isPopupActive());
    mouse.click (box, { 20.0f, 15.0f });
    EXPECT_TRUE (pumpUntil ([&] { return box.isPopupActive(); }));
    pumpPending();
}

TEST_F (PluginComboBoxControlTest, ArrowKeysChooseByOneGestureAndOneTransactionEach)
{
    auto& box = control.getComboBox();

    for (const auto value : { 2.0f, 3.0f })
    {
        EXPECT_TRUE (box.keyPressed (juce::KeyPress (juce::KeyPress::downKey)));
        ASSERT_TRUE (pumpUntil ([&] { return juce::exactlyEqual (processor.getValue ("choice"), value); }));
        EXPECT_EQ (heard.take(), "[.]");
    }

    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (box.getSelectedId(), 3);
    EXPECT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (box.getSelectedId(), 2);
}

TEST_F (PluginComboBoxControlTest, TheWheelDoesNotChooseWhilePassingOver)
{
    PeerMouse (*window).turnWheel (control.getComboBox(), { 90.0f, 15.0f }, -0.5f);
    pumpPending();
    EXPECT_EQ (heard.take(), "");
}

TEST_F (PluginComboBoxControlTest, TheTooltipIsTheHelpText)
{
    control.setTooltip ("help");
    EXPECT_EQ (control.getComboBox().getAccessibilityHandler()->getHelp(), "help");
}

TEST_F (PluginComboBoxControlTest, AnUnknownParameterGivesAnEmptyBox)
{
    PluginComboBoxControl unknown { processor, "nothing" };
    EXPECT_EQ (unknown.getComboBox().getNumItems(), 0);
}

} // namespace
} // namespace mk::pluginCore
