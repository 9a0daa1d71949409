// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests who receives the keys when the notice of a new version opens, with the real keyboard; needs a display.
#include "orlo/window/AudioPluginAudioProcessorEditor.h"

#include "tests/support/FakeSite.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mk::orlo::test
{
namespace
{

class UpdateNoticeKeys : public testing::Test
{
protected:
    /** Records the keys that the window leaves to its host. */
    struct HostKeys final : juce::KeyListener
    {
        bool keyPressed (const juce::KeyPress& key, juce::Component*) override
        {
            codes.push_back (key.getKeyCode());
            return false;
        }

        [[nodiscard]] bool contains (int code) const
        {
            return std::find (codes.begin(), codes.end(), code) != codes.end();
        }

        std::vector<int> codes;
    };

    void SetUp() override
    {
        if (! Screen::getInstance().isAvailable())
            GTEST_SKIP() << "needs a screen";

        site.setReplies ("macVersion:9.9.9;macReleaseDate:0", "New: all of it");
        forgetSettings();
        editor = std::make_unique<AudioPluginAudioProcessorEditor> (processor, site.makeEnvironment());
        editor->open (1050, 578);
        editor->addKeyListener (&hostKeys);
        editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
        editor->setTopLeftPosition (0, 0);
        editor->setVisible (true);
        editor->toFront (true);
        ASSERT_TRUE (pumpUntil ([this] { return editor->isShowing() && editor->getPeer()->isFocused(); }));
        ASSERT_TRUE (pumpUntil ([this] { return editor->hasKeyboardFocus (true); }));

        editor->startUpdateCheck();
        ASSERT_TRUE (pumpUntil ([this] { return editor->isUpdateNoticeOpen(); }));
    }

    void TearDown() override
    {
        editor = nullptr;
        forgetSettings();
    }

    void forgetSettings()
    {
        for (const auto* const key :
             { &pluginCore::SettingsIds::lastVersionCheck, &pluginCore::SettingsIds::lastChangeLogTime })
            settings.getSettings().removeProperty (*key, nullptr);
    }

    static void type (unsigned long symbol)
    {
        Screen::getInstance().setKey (symbol, true);
        Screen::getInstance().setKey (symbol, false);
    }

    [[nodiscard]] bool isNoticeFocused() const { return editor->getUpdateNotice().hasKeyboardFocus (true); }

    FakeSite site;
    const pluginCore::PluginGlobalSettings settings;
    AudioPluginAudioProcessor processor;
    HostKeys hostKeys;
    std::unique_ptr<AudioPluginAudioProcessorEditor> editor;
};

TEST_F (UpdateNoticeKeys, ReturnGoesToTheHostAndOpensNoPage)
{
    EXPECT_FALSE (isNoticeFocused());
    type (Screen::returnKey);
    ASSERT_TRUE (
        pumpUntil ([this] { return hostKeys.contains (juce::KeyPress::returnKey) || ! site.openedPages.empty(); }));
    EXPECT_TRUE (site.openedPages.empty());
    EXPECT_TRUE (editor->isUpdateNoticeOpen());
}

TEST_F (UpdateNoticeKeys, AWindowThatRegainsTheFocusDoesNotPassItToTheNotice)
{
    auto* const peer = editor->getPeer();
    peer->handleFocusLoss();
    peer->handleFocusGain();
    EXPECT_TRUE (editor->hasKeyboardFocus (true));
    EXPECT_FALSE (isNoticeFocused());
}

TEST_F (UpdateNoticeKeys, TabFocusesTheNoticeAndReturnOpensThePage)
{
    type (Screen::tabKey);
    ASSERT_TRUE (pumpUntil ([this] { return isNoticeFocused(); }));
    type (Screen::returnKey);
    ASSERT_TRUE (pumpUntil ([this] { return ! site.openedPages.empty(); }));
    EXPECT_FALSE (editor->isUpdateNoticeOpen());
}

TEST_F (UpdateNoticeKeys, AClickOnTheNoticeFocusesIt)
{
    auto& notice = editor->getUpdateNotice();
    const auto target = notice.localPointToGlobal (juce::Point { 20, 20 });
    const auto mouse = juce::Desktop::getInstance().getMainMouseSource();

    // Moves repeatedly between two points, since a mouse that was at the target already when the window opened
    // would send no event.
    ASSERT_TRUE (pumpUntil (
        [&, tries = 0]() mutable
        {
            if (tries % 10 == 0)
                Screen::getInstance().moveMouseTo (target + juce::Point { tries % 20 == 0 ? 1 : 0, 0 });

            ++tries;
            return mouse.getComponentUnderMouse() == &notice;
        }));
    Screen::getInstance().setButton (1, true);
    Screen::getInstance().setButton (1, false);
    ASSERT_TRUE (pumpUntil ([this] { return isNoticeFocused(); }));

    type (Screen::escapeKey);
    ASSERT_TRUE (pumpUntil ([this] { return ! editor->isUpdateNoticeOpen(); }));
    EXPECT_TRUE (site.openedPages.empty());
    EXPECT_TRUE (editor->hasKeyboardFocus (true));
    EXPECT_FALSE (isNoticeFocused());
}

} // namespace
} // namespace mk::orlo::test
