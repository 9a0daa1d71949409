// SPDX-License-Identifier: AGPL-3.0-or-later
// The size at which the editor of a session opens.
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class SessionEditorSizeTest : public testing::Test
{
protected:
    SessionEditorSizeTest() { processor.applyInitialSettings(); }

    /** Gives raw text to the processor as a session. */
    void restoreText (const char* text) { processor.restore (*juce::parseXML (text)); }

    TestProcessor processor;
    pluginCore::SessionState& state = processor.getSessionState();
};

TEST_F (SessionEditorSizeTest, TheEditorOpensAtTheSizeOfTheSession)
{
    restoreText ("<TestPlugin1 pluginEditorWidth='640' pluginEditorHeight='480'/>");
    const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
    EXPECT_EQ (editor->getWidth(), 640);
    EXPECT_EQ (editor->getHeight(), 480);
}

TEST_F (SessionEditorSizeTest, WithoutASizeTheEditorOpensAtTheUsersSizeOrElseAtTheFallback)
{
    const pluginCore::PluginGlobalSettings settings;
    auto tree = settings.getSettings();
    tree.removeAllProperties (nullptr); // what other tests have left

    const auto openEditor = [this]
    {
        state.pluginEditorWidth = 0;
        state.pluginEditorHeight = -1;
        const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
        return editor->getLocalBounds();
    };

    EXPECT_EQ (openEditor(), juce::Rectangle<int> (1050, 900));

    tree.setProperty (pluginCore::SettingsIds::defaultWidth, "777", nullptr);
    tree.setProperty (pluginCore::SettingsIds::defaultHeight, "333", nullptr);
    EXPECT_EQ (openEditor(), juce::Rectangle<int> (777, 333));

    tree.setProperty (pluginCore::SettingsIds::defaultWidth, "wide", nullptr);
    tree.setProperty (pluginCore::SettingsIds::defaultHeight, "-1", nullptr);
    EXPECT_EQ (openEditor(), juce::Rectangle<int> (1050, 900));
    tree.removeAllProperties (nullptr);
}

TEST_F (SessionEditorSizeTest, AnOpenEditorStaysAtItsSizeAndTheNextOpensAtTheSessions)
{
    std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
    const auto before = editor->getLocalBounds();
    restoreText ("<TestPlugin1 pluginEditorWidth='640' pluginEditorHeight='480'/>");
    pumpPending();
    EXPECT_EQ (editor->getLocalBounds(), before);

    editor.reset();
    editor.reset (processor.createEditor());
    EXPECT_EQ (editor->getLocalBounds(), juce::Rectangle<int> (640, 480));
}

TEST_F (SessionEditorSizeTest, AnAbsurdSizeIsClampedToTheEditorsLimitsOrToTheDisplay)
{
    restoreText ("<TestPlugin1 pluginEditorWidth='2147483647' pluginEditorHeight='99999999999'/>");
    const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
    const auto* const display = juce::Desktop::getInstance().getDisplays().getPrimaryDisplay();
    ASSERT_NE (display, nullptr);

    EXPECT_LE (editor->getWidth(), 3000);
    EXPECT_LE (editor->getHeight(), 2000);
    EXPECT_GE (editor->getWidth(), juce::jmin (3000, display->userArea.getWidth() - 10));
    EXPECT_GE (editor->getHeight(), juce::jmin (2000, display->userArea.getHeight() - 100));
}

} // namespace
} // namespace mk::orlo::test
