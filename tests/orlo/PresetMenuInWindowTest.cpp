// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/Params.h"
#include "tests/orlo/SettingsInWindow.h"

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

    /** Presses keys in the menu that is open. */
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

    juce::String shownPage;
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

TEST_F (PresetMenuInWindowTest, OpensForTheLeftButtonAlone)
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

    // Saving and the default are greyed out: "Save as...", then "Manual".
    press ({ Key::downKey, Key::downKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([this] { return shownPage.isNotEmpty(); }));
    EXPECT_EQ (shownPage, panel.getPresetActions().getManualUrl().toString (true));
}

TEST_F (PresetMenuInWindowTest, LoadsAPreset)
{
    auto& presets = processor.getPresetsManager();
    setValue (Params::id::speed, 77.0f);
    presets.savePresetFile (presets.getUserFolder().getChildFile ("mine.mkpreset"), false);
    presets.setCurrentPresetFile ({});
    setValue (Params::id::speed, 11.0f);

    ASSERT_TRUE (open());
    press ({ Key::downKey, Key::downKey, Key::downKey, Key::rightKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([this] { return getValue (Params::id::speed) > 70.0f; }));
    EXPECT_EQ (presets.getCurrentPresetFile().getFileName(), "mine.mkpreset");
    EXPECT_EQ (valueText ("speedSlider"), "77 %");

    // The next opening offers to save into it.
    EXPECT_TRUE (waitUntilClosed());
    ASSERT_TRUE (open());
    setValue (Params::id::speed, 33.0f);
    press ({ Key::downKey, Key::returnKey });
    EXPECT_TRUE (pumpUntil ([&] { return ! presets.isDirty(); }));
    EXPECT_TRUE (presets.getCurrentPresetFile().loadFileAsString().contains ("value=\"33.0\""));
}

TEST_F (PresetMenuInWindowTest, CanBeDismissedByTheWindow)
{
    ASSERT_TRUE (open());
    juce::PopupMenu::dismissAllActiveMenus();
    EXPECT_TRUE (waitUntilClosed());
}
} // namespace
} // namespace mk::orlo::test
