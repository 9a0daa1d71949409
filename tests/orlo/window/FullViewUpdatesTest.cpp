// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/AudioPluginAudioProcessorEditor.h"
#include "orlo/window/CreateEditor.h"

#include "tests/support/FakeSite.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

namespace SettingsIds = pluginCore::SettingsIds;

class FullViewUpdatesTest : public testing::Test
{
protected:
    FullViewUpdatesTest()
    {
        site.setReplies ("macVersion:9.9.9;macReleaseDate:0", "New: all of it");
        forgetSettings();
    }

    ~FullViewUpdatesTest() override { forgetSettings(); }

    void forgetSettings()
    {
        for (const auto* const key : { &SettingsIds::lastVersionCheck, &SettingsIds::lastChangeLogTime })
            globalSettings.getSettings().removeProperty (*key, nullptr);
    }

    [[nodiscard]] juce::String get (const juce::Identifier& key) const
    {
        return globalSettings.getSettings()[key].toString();
    }

    void setFullView (bool shouldBeFull) { processor.getUIView().getCleanViewModeValue() = shouldBeFull; }

    FakeSite site;
    pluginCore::PluginGlobalSettings globalSettings;
    AudioPluginAudioProcessor processor { createEditor };
};

TEST_F (FullViewUpdatesTest, InStandardViewTheNoticeOpens)
{
    AudioPluginAudioProcessorEditor editor (processor, site.makeEnvironment());
    editor.startUpdateCheck();
    EXPECT_TRUE (pumpUntil ([&] { return editor.isUpdateNoticeOpen(); }));
}

TEST_F (FullViewUpdatesTest, AnUpdateFoundInFullViewIsShownByTheNextWindow)
{
    setFullView (true);
    {
        AudioPluginAudioProcessorEditor editor (processor, site.makeEnvironment());
        editor.startUpdateCheck();
        auto& checker = editor.getUpdateChecker();
        ASSERT_TRUE (checker.isThreadRunning());
        ASSERT_TRUE (pumpUntil ([&] { return ! checker.isThreadRunning() && ! checker.isUpdatePending(); }));
        EXPECT_EQ (site.count ("lastVersion.php"), 1);
        EXPECT_EQ (site.count ("changeLogMac.php"), 0);
        EXPECT_FALSE (editor.isUpdateNoticeOpen());
        EXPECT_EQ (get (SettingsIds::lastVersionCheck), "");
        EXPECT_EQ (get (SettingsIds::lastChangeLogTime), "");
    }

    setFullView (false);
    AudioPluginAudioProcessorEditor editor (processor, site.makeEnvironment());
    editor.startUpdateCheck();
    EXPECT_TRUE (pumpUntil ([&] { return editor.isUpdateNoticeOpen(); }));
}

TEST_F (FullViewUpdatesTest, SwitchingToFullViewBeforeTheChangeLogArrivesKeepsTheNoticeClosed)
{
    AudioPluginAudioProcessorEditor editor (processor, site.makeEnvironment());
    editor.startUpdateCheck();
    ASSERT_TRUE (pumpUntil ([&] { return get (SettingsIds::lastChangeLogTime).isNotEmpty(); }));
    setFullView (true);
    auto& checker = editor.getUpdateChecker();
    ASSERT_TRUE (pumpUntil ([&] { return ! checker.isThreadRunning() && ! checker.isUpdatePending(); }));
    EXPECT_EQ (site.count ("changeLogMac.php"), 1);
    EXPECT_FALSE (editor.isUpdateNoticeOpen());
}

} // namespace
} // namespace mk::orlo::test
