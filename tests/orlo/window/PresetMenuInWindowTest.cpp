// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SettingsInWindow.h"
#include "orlo/parameters/Params.h"
#include "tests/support/FindComponents.h"
#include "tests/support/WritePreset.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
/** The preset menu in a real window. */
class PresetMenuInWindowTest : public SettingsInWindowTest
{
protected:
    PresetMenuInWindowTest()
    {
        panel.getPresetActions().showPage = [this] (const juce::URL& url) { shownPage = url.toString (true); };
    }

    ~PresetMenuInWindowTest() override
    {
        juce::PopupMenu::dismissAllActiveMenus();
        pumpPending();
    }

    void click (int modifiers) { clickOn (child ("presetsButton"), modifiers); }

    [[nodiscard]] static juce::Component* getMenu() { return juce::Component::getCurrentlyModalComponent(); }

    /** Opens the menu as the user does. */
    [[nodiscard]] bool open()
    {
        click (PeerMouse::left);
        return pumpUntil ([] { return getMenu() != nullptr; });
    }

    /** Presses keys in the open menu. */
    void press (std::initializer_list<int> keys)
    {
        for (const auto key : keys)
        {
            ASSERT_NE (getMenu(), nullptr);
            getMenu()->keyPressed (juce::KeyPress (key));
            pumpPending();
        }
    }

    [[nodiscard]] static bool waitUntilClosed()
    {
        return pumpUntil ([] { return getMenu() == nullptr; });
    }

    /** Lists the rows of the open menu without the separators. Disabled rows are in brackets, and ticked rows begin
        with a star. */
    [[nodiscard]] static juce::String readRows()
    {
        juce::StringArray rows;

        for (auto* const row : getMenu()->getChildren())
        {
            const auto* const handler = row->getAccessibilityHandler();

            if (handler == nullptr || handler->getTitle().isEmpty())
                continue;

            const auto canBeChosen = handler->getActions().contains (juce::AccessibilityActionType::press);
            const auto text =
                (handler->getCurrentState().isChecked() ? juce::String ("*") : juce::String()) + handler->getTitle();
            rows.add (canBeChosen ? text : "(" + text + ")");
        }

        return rows.joinIntoString (", ");
    }

    juce::String shownPage;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
};

using Key = juce::KeyPress;

TEST_F (PresetMenuInWindowTest, OpensInsideTheEditorAndClosesWithoutDoingAnything)
{
    ASSERT_TRUE (open());
    EXPECT_TRUE (editor.isParentOf (getMenu()));

    const auto before = processor.getStateXml (true)->toString();
    press ({ Key::escapeKey });
    EXPECT_TRUE (waitUntilClosed());
    EXPECT_EQ (processor.getStateXml (true)->toString(), before);
}

TEST_F (PresetMenuInWindowTest, OpensOnlyForTheLeftButton)
{
    click (PeerMouse::right);
    click (PeerMouse::left | PeerMouse::ctrl);
    pumpPending();
    EXPECT_EQ (getMenu(), nullptr);
    EXPECT_TRUE (panel.getPresetsMenu().menu.getNumItems() == 0);
}

TEST_F (PresetMenuInWindowTest, OpensTheManual)
{
    ASSERT_TRUE (open());

    // Saving and the default are disabled, so the first key selects "Save as..." and the second "Manual".
    press ({ Key::downKey, Key::downKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([this] { return shownPage.isNotEmpty(); }));
    EXPECT_EQ (shownPage, processor.getReleaseNotesUrl() + "/manual.html?s=orlo&v=1.2.1");
}

TEST_F (PresetMenuInWindowTest, LoadsAPreset)
{
    setValue (Params::id::speed, 77.0f);
    writeUserPreset (presets, "mine");
    setValue (Params::id::speed, 11.0f);

    ASSERT_TRUE (open());
    press ({ Key::downKey, Key::downKey, Key::downKey, Key::rightKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([this] { return getValue (Params::id::speed) > 70.0f; }));
    EXPECT_EQ (presets.getCurrentPresetFile().getFileName(), "mine.mkpreset");
    EXPECT_EQ (valueText ("speedSlider"), "77 %");

    // When the menu opens again, it offers to save to this preset.
    EXPECT_TRUE (waitUntilClosed());
    ASSERT_TRUE (open());
    setValue (Params::id::speed, 33.0f);
    press ({ Key::downKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([&] { return ! presets.isDirty(); }));
    EXPECT_TRUE (presets.getCurrentPresetFile().loadFileAsString().contains ("value=\"33.0\""));
}

TEST_F (PresetMenuInWindowTest, ShowsWhichRowsCanBeChosenAndWhichAreTicked)
{
    ASSERT_TRUE (open());
    EXPECT_EQ (readRows(), "(Save), Save as..., (Set Preset as Default), Manual");
    press ({ Key::escapeKey });
    ASSERT_TRUE (waitUntilClosed());

    writePreset (presets, presets.getInitFile());
    writeUserPreset (presets, "drums/kick");
    const auto current = writeUserPreset (presets, "drums/loud/snare");
    writeUserPreset (presets, "voice");
    presets.setCurrentPresetFile (current);

    ASSERT_TRUE (open());
    EXPECT_EQ (readRows(), "Save, Save as..., Set Preset as Default, Init, Manual, Presets");
    press ({ Key::upKey, Key::rightKey });
    EXPECT_EQ (readRows(), "*drums, voice");
    press ({ Key::rightKey });
    EXPECT_EQ (readRows(), "kick, *loud");
    press ({ Key::downKey, Key::rightKey });
    EXPECT_EQ (readRows(), "*snare");
}

TEST_F (PresetMenuInWindowTest, LoadsAPresetTwoFoldersDown)
{
    setValue (Params::id::speed, 66.0f);
    const auto file = writeUserPreset (presets, "drums/loud/snare");
    setValue (Params::id::speed, 11.0f);

    ASSERT_TRUE (open());
    press ({ Key::upKey, Key::rightKey, Key::rightKey, Key::rightKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([this] { return getValue (Params::id::speed) > 60.0f; }));
    EXPECT_EQ (presets.getCurrentPresetFile(), file);
}

TEST_F (PresetMenuInWindowTest, OpensBelowItsButtonWithRowsOfTheButtonsHeight)
{
    auto& button = child ("presetsButton");
    ASSERT_TRUE (open());
    auto& menu = *getMenu();
    EXPECT_GE (menu.getWidth(), button.getWidth());
    EXPECT_EQ (menu.getChildComponent (0)->getHeight(), button.getHeight());

    const auto place = editor.getLocalArea (&button, button.getLocalBounds());
    EXPECT_EQ (menu.getX(), place.getX());
    EXPECT_NEAR (menu.getY(), place.getBottom(), 2);
}

TEST_F (PresetMenuInWindowTest, InitKeepsTheColourMap)
{
    writePreset (presets, presets.getInitFile());
    setValue (Params::id::speed, 91.0f);
    setValue (Params::id::colourMap, 17.0f);

    ASSERT_TRUE (open());
    press ({ Key::downKey, Key::downKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([this] { return juce::approximatelyEqual (getValue (Params::id::speed), 40.0f); }));
    EXPECT_EQ (valueText ("speedSlider"), "40 %");
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 17.0f);
    EXPECT_EQ (panel.getColourMapIndex(), 17);
}

TEST_F (PresetMenuInWindowTest, TheDefaultIsThePresetAtTheOpeningEvenAfterAnUndo)
{
    const auto first = writeUserPreset (presets, "first");
    const auto second = writeUserPreset (presets, "second");
    presets.setCurrentPresetFile (first);
    ASSERT_TRUE (presets.loadPresetFile (second, &processor.getUndoManager()));

    ASSERT_TRUE (open());
    ASSERT_TRUE (processor.getUndoManager().undo());
    EXPECT_EQ (presets.getCurrentPresetFile(), first);
    press ({ Key::downKey, Key::downKey, Key::downKey, Key::returnKey });

    const auto getDefault = [this]
    { return settings.getSettings()[pluginCore::SettingsIds::defaultPreset].toString(); };
    EXPECT_TRUE (pumpUntil ([&] { return getDefault().isNotEmpty(); }));
    EXPECT_TRUE (getDefault().contains ("second.mkpreset")) << getDefault();
}

TEST_F (PresetMenuInWindowTest, SavesUnderAnotherNameAndReloads)
{
    using Box = juce::FileChooserDialogBox;

    // The system's dialog belongs to another program, so the test cannot operate it.
    if (juce::FileChooser::isPlatformDialogAvailable())
        GTEST_SKIP() << "the system has a save dialog of its own";

    setValue (Params::id::speed, 58.0f);
    ASSERT_TRUE (open());
    press ({ Key::downKey, Key::returnKey });
    ASSERT_TRUE (pumpUntil ([] { return ! findWindows<Box>().empty(); }));

    auto& box = *findWindows<Box>().front();
    auto& browser = *findInside<juce::FileBrowserComponent> (box);
    browser.setFileName ("Other.mkpreset");
    auto* const button = findInside<juce::TextButton> (
        box, [&] (const auto& candidate) { return candidate.getButtonText() == browser.getActionVerb(); });
    ASSERT_NE (button, nullptr);
    ASSERT_TRUE (pumpUntil ([button] { return button->isEnabled(); }));
    button->triggerClick();

    const auto file = presets.getUserFolder().getChildFile ("Other.mkpreset");
    ASSERT_TRUE (pumpUntil ([&] { return presets.getCurrentPresetFile() == file; }));
    EXPECT_TRUE (file.loadFileAsString().contains ("value=\"58.0\""));
    EXPECT_FALSE (presets.isDirty());
    EXPECT_TRUE (processor.getUndoManager().canUndo()) << "the preset was loaded";

    ASSERT_TRUE (open());
    EXPECT_EQ (readRows(), "Save, Save as..., Set Preset as Default, Manual, Presets");
}

TEST_F (PresetMenuInWindowTest, CanBeDismissedByTheWindow)
{
    ASSERT_TRUE (open());
    juce::PopupMenu::dismissAllActiveMenus();
    EXPECT_TRUE (waitUntilClosed());
}
} // namespace
} // namespace mk::orlo::test
