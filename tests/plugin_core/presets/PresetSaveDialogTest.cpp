// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/support/FindComponents.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class PresetSaveDialog : public testing::Test
{
protected:
    void SetUp() override
    {
        // Such a box is another program's window.
        if (juce::FileChooser::isPlatformDialogAvailable())
            GTEST_SKIP() << "the system has a box of its own";

        processor->applyInitialSettings();
        processor->setValue ("floor", -31.0f);
    }

    [[nodiscard]] pluginCore::PresetsManager& getPresets() const { return processor->getPresetsManager(); }

    [[nodiscard]] static juce::FileBrowserComponent& getBrowser (juce::Component& box)
    {
        return *findInside<juce::FileBrowserComponent> (box);
    }

    /** Enters a name and presses the button to save. */
    static void choose (juce::Component& box, const juce::String& name)
    {
        auto& browser = getBrowser (box);
        browser.setFileName (name);
        auto* const button = findInside<juce::TextButton> (
            box, [&] (const auto& candidate) { return candidate.getButtonText() == browser.getActionVerb(); });
        ASSERT_NE (button, nullptr);
        ASSERT_TRUE (pumpUntil ([button] { return button->isEnabled(); }));
        button->triggerClick();
    }

    std::unique_ptr<TestProcessor> processor = std::make_unique<TestProcessor>();
};

using Box = juce::FileChooserDialogBox;

TEST_F (PresetSaveDialog, ShowsTheUsersPresetsUnderItsTitle)
{
    getPresets().savePresetAs (true);
    ASSERT_EQ (findWindows<Box>().size(), 1u);
    auto& box = *findWindows<Box>().front();
    EXPECT_EQ (box.getName(), "save...");

    auto& browser = getBrowser (box);
    EXPECT_EQ (browser.getRoot(), getPresets().getUserFolder());
    EXPECT_TRUE (browser.isSaveMode());
    EXPECT_TRUE (browser.isFileSuitable (browser.getRoot().getChildFile ("a.mkpreset")));
    EXPECT_FALSE (browser.isFileSuitable (browser.getRoot().getChildFile ("a.txt")));
}

TEST_F (PresetSaveDialog, SavesWhereTheUserSaysAndReloads)
{
    getPresets().savePresetAs (true);
    choose (*findWindows<Box>().front(), "Mine.mkpreset");
    const auto file = getPresets().getUserFolder().getChildFile ("Mine.mkpreset");
    ASSERT_TRUE (pumpUntil ([&file] { return file.existsAsFile(); }));

    EXPECT_TRUE (findWindows<Box>().empty());
    EXPECT_EQ (getPresets().getCurrentPresetFile(), file);
    EXPECT_FALSE (getPresets().isDirty());
    EXPECT_TRUE (processor->getUndoManager().canUndo());
}

TEST_F (PresetSaveDialog, AsksBeforeItOverwrites)
{
    const auto file = processor->writePreset ("Mine.mkpreset", {});
    const auto content = file.loadFileAsString();
    getPresets().savePresetAs (true);
    choose (*findWindows<Box>().front(), "Mine.mkpreset");
    ASSERT_TRUE (pumpUntil ([] { return ! findWindows<juce::AlertWindow>().empty(); }));
    EXPECT_EQ (file.loadFileAsString(), content);

    findWindows<juce::AlertWindow>().front()->exitModalState (0);
    ASSERT_TRUE (pumpUntil ([] { return findWindows<juce::AlertWindow>().empty(); }));
    EXPECT_EQ (file.loadFileAsString(), content);
}

TEST_F (PresetSaveDialog, SavesNothingIfItIsDismissed)
{
    getPresets().savePresetAs (true);
    findWindows<Box>().front()->exitModalState (0);
    ASSERT_TRUE (pumpUntil ([] { return findWindows<Box>().empty(); }));
    EXPECT_EQ (getPresets().getCurrentPresetFile(), juce::File());
    EXPECT_EQ (getPresets().getUserFolder().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
}

TEST_F (PresetSaveDialog, ASecondOneTakesThePlaceOfTheFirst)
{
    getPresets().savePresetAs (true);
    getPresets().savePresetAs (true);
    EXPECT_EQ (findWindows<Box>().size(), 1u);
}

TEST_F (PresetSaveDialog, GoesWithThePlugIn)
{
    getPresets().savePresetAs (true);
    processor.reset();
    pumpPending();
    EXPECT_TRUE (findWindows<Box>().empty());
}

} // namespace
} // namespace mk::orlo::test
