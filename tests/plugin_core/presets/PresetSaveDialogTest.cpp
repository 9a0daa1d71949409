// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/support/FindComponents.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Screen.h"
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
        // The system's dialog belongs to another program, so the test cannot operate it.
        if (juce::FileChooser::isPlatformDialogAvailable())
            GTEST_SKIP() << "the system has a dialog of its own";

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

    /** Clicks with the real mouse. False if it does not reach the component. */
    [[nodiscard]] static bool click (juce::Component& component)
    {
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
        const auto target = component.localPointToGlobal (component.getLocalBounds().getCentre());

        // The mouse may have been here already when the window opened; moving it here again would then cause no
        // event. So it comes from beside, and more than once.
        const auto isThere = pumpUntil (
            [&, tries = 0]() mutable
            {
                if (tries % 10 == 0)
                    Screen::getInstance().moveMouseTo (target + juce::Point { tries % 20 == 0 ? 1 : 0, 0 });

                ++tries;
                const auto* const under = mouse.getComponentUnderMouse();
                return under != nullptr && (under == &component || component.isParentOf (under));
            });

        Screen::getInstance().setButton (1, true);
        Screen::getInstance().setButton (1, false);
        return isThere;
    }

    /** Opens the dialog, types the name letter by letter and clicks on the button to save. */
    [[nodiscard]] bool saveAs (const juce::String& name) const
    {
        getPresets().savePresetAs (true);
        auto& box = *findWindows<juce::FileChooserDialogBox>().front();
        auto* const field = findInside<juce::TextEditor> (getBrowser (box));

        if (! pumpUntil ([&box] { return box.isShowing(); }) || ! click (*field)
            || ! pumpUntil ([field] { return field->hasKeyboardFocus (true); }))
            return false;

        for (const auto letter : name)
        {
            Screen::getInstance().setKey ((unsigned long) letter, true);
            Screen::getInstance().setKey ((unsigned long) letter, false);
        }

        return pumpUntil ([&] { return field->getText() == name; })
               && clickButton (box, getBrowser (box).getActionVerb());
    }

    [[nodiscard]] static bool clickButton (juce::Component& window, const juce::String& text)
    {
        auto* const button = findInside<juce::TextButton> (
            window, [&text] (const auto& candidate) { return candidate.getButtonText() == text; });
        return button != nullptr && pumpUntil ([button] { return button->isShowing() && button->isEnabled(); })
               && click (*button);
    }

    /** Waits for the dialog that asks whether to overwrite, and clicks on one of its buttons. */
    [[nodiscard]] static bool answer (const juce::String& text)
    {
        return pumpUntil ([] { return ! findWindows<juce::AlertWindow>().empty(); })
               && clickButton (*findWindows<juce::AlertWindow>().front(), text)
               && pumpUntil ([] { return findWindows<juce::AlertWindow>().empty(); });
    }

    std::unique_ptr<TestProcessor> processor = std::make_unique<TestProcessor>();
};

using Box = juce::FileChooserDialogBox;

class TypedPresetName : public PresetSaveDialog
{
protected:
    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

        PresetSaveDialog::SetUp();
    }
};

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

TEST_F (PresetSaveDialog, SavesWhereTheUserChoosesAndReloads)
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

TEST_F (TypedPresetName, GetsTheExtensionAutomatically)
{
    ASSERT_TRUE (saveAs ("mine"));
    const auto file = getPresets().getUserFolder().getChildFile ("mine.mkpreset");
    ASSERT_TRUE (pumpUntil ([&file] { return file.existsAsFile(); }));
    EXPECT_EQ (getPresets().getCurrentPresetFile(), file);
}

TEST_F (TypedPresetName, OfAPresetThatIsThereAsksAndReplacesIt)
{
    const auto file = processor->writePreset ("mine.mkpreset", {});
    const auto content = file.loadFileAsString();
    ASSERT_TRUE (saveAs ("mine"));
    ASSERT_TRUE (answer (juce::translate ("Overwrite")));

    EXPECT_EQ (getPresets().getCurrentPresetFile(), file);
    EXPECT_NE (file.loadFileAsString(), content);
    EXPECT_EQ (getPresets().getUserFolder().getNumberOfChildFiles (juce::File::findFiles), 1);
    EXPECT_FALSE (getPresets().isDirty());
}

TEST_F (TypedPresetName, OfAPresetThatIsThereAsksAndLeavesItAsItIs)
{
    const auto file = processor->writePreset ("mine.mkpreset", {});
    const auto content = file.loadFileAsString();
    ASSERT_TRUE (saveAs ("mine"));
    ASSERT_TRUE (answer (juce::translate ("Cancel")));

    EXPECT_EQ (getPresets().getCurrentPresetFile(), juce::File());
    EXPECT_EQ (file.loadFileAsString(), content);
    EXPECT_EQ (getPresets().getUserFolder().getNumberOfChildFiles (juce::File::findFiles), 1);
}

TEST_F (TypedPresetName, ClosesItsQuestionWhenThePlugInIsDeleted)
{
    static_cast<void> (processor->writePreset ("mine.mkpreset", {}));
    ASSERT_TRUE (saveAs ("mine"));
    ASSERT_TRUE (pumpUntil ([] { return ! findWindows<juce::AlertWindow>().empty(); }));
    processor.reset();
    EXPECT_TRUE (pumpUntil ([] { return findWindows<juce::AlertWindow>().empty(); }));
}

TEST_F (PresetSaveDialog, SavesNothingIfItIsDismissed)
{
    getPresets().savePresetAs (true);
    findWindows<Box>().front()->exitModalState (0);
    ASSERT_TRUE (pumpUntil ([] { return findWindows<Box>().empty(); }));
    EXPECT_EQ (getPresets().getCurrentPresetFile(), juce::File());
    EXPECT_EQ (getPresets().getUserFolder().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
}

TEST_F (PresetSaveDialog, ASecondOneReplacesTheFirst)
{
    getPresets().savePresetAs (true);
    getPresets().savePresetAs (true);
    EXPECT_EQ (findWindows<Box>().size(), 1u);
}

TEST_F (PresetSaveDialog, ClosesWhenThePlugInIsDeleted)
{
    getPresets().savePresetAs (true);
    processor.reset();
    pumpPending();
    EXPECT_TRUE (findWindows<Box>().empty());
}

} // namespace
} // namespace mk::orlo::test
