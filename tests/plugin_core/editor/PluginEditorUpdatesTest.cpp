// SPDX-License-Identifier: AGPL-3.0-or-later
// When a window checks for a new version, and when it shows the notice of one.
#include "plugin_core/editor/PluginEditor.h"
#include "plugin_core/settings/SettingsIds.h"

#include "tests/support/FakeSite.h"
#include "tests/support/HttpServer.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

#include <chrono>

namespace mk::pluginCore::test
{
namespace
{

using orlo::test::FakeSite;
using orlo::test::HttpServer;
using orlo::test::pumpUntil;
using orlo::test::TestProcessor;

constexpr juce::int64 hour = 3600000;
constexpr juce::int64 day = 24 * hour;
constexpr juce::int64 week = 7 * day;

class PluginEditorUpdatesTest : public testing::Test
{
protected:
    PluginEditorUpdatesTest()
    {
        forgetSettings();
        processor.updateEnvironment = site.makeEnvironment();
        site.setReplies (makeReply ("4.6.0", site.now - 30 * day), "New: all of it");
    }

    ~PluginEditorUpdatesTest() override
    {
        editor = nullptr;
        forgetSettings();
    }

    [[nodiscard]] static juce::String makeReply (const juce::String& version, juce::int64 date)
    {
        return "macVersion:" + version + ";macReleaseDate:" + juce::String (date);
    }

    void set (const juce::Identifier& key, const juce::String& value)
    {
        globalSettings.getSettings().setProperty (key, value, nullptr);
    }

    void set (const juce::Identifier& key, juce::int64 value) { set (key, juce::String (value)); }

    [[nodiscard]] juce::String get (const juce::Identifier& key) const
    {
        return globalSettings.getSettings()[key].toString();
    }

    void forgetSettings()
    {
        for (const auto* const key :
             { &SettingsIds::checkForUpdates, &SettingsIds::lastVersionCheck, &SettingsIds::lastChangeLogTime })
            globalSettings.getSettings().removeProperty (*key, nullptr);
    }

    /** Opens a window. */
    [[nodiscard]] std::unique_ptr<PluginEditor> open()
    {
        return std::unique_ptr<PluginEditor> (dynamic_cast<PluginEditor*> (processor.createEditor()));
    }

    /** Opens the window and waits until its own check is over. False if it starts none. */
    [[nodiscard]] bool openAndWait()
    {
        editor = open();
        auto& checker = editor->getUpdateChecker();

        if (! checker.isThreadRunning())
            return false;

        EXPECT_TRUE (pumpUntil ([&] { return get (SettingsIds::lastVersionCheck) == juce::String (site.now); }));
        EXPECT_TRUE (pumpUntil ([&] { return ! checker.isThreadRunning() && ! checker.isUpdatePending(); }));
        return true;
    }

    [[nodiscard]] bool isNoticeOpen() const { return editor != nullptr && editor->isUpdateNoticeOpen(); }

    FakeSite site;
    PluginGlobalSettings globalSettings;
    TestProcessor processor;
    std::unique_ptr<PluginEditor> editor;
};

//==============================================================================
TEST_F (PluginEditorUpdatesTest, TheFirstWindowEverChecksAndShowsTheNotice)
{
    ASSERT_TRUE (openAndWait());
    EXPECT_TRUE (isNoticeOpen());
    EXPECT_TRUE (editor->getUpdateNotice().isVisible());
    EXPECT_EQ (editor->getUpdateNotice().getBounds(), editor->getLocalBounds());
    EXPECT_EQ (get (SettingsIds::lastVersionCheck), juce::String (site.now));
    EXPECT_EQ (get (SettingsIds::lastChangeLogTime), juce::String (site.now));
}

TEST_F (PluginEditorUpdatesTest, AWindowWithinADayOfTheLastCheckDoesNotCheck)
{
    set (SettingsIds::lastVersionCheck, site.now - day + 1);
    EXPECT_FALSE (openAndWait());
    EXPECT_EQ (get (SettingsIds::lastVersionCheck), juce::String (site.now - day + 1));

    set (SettingsIds::lastVersionCheck, site.now - day);
    EXPECT_TRUE (openAndWait());
}

TEST_F (PluginEditorUpdatesTest, NoCheckStartsWhenSwitchedOff)
{
    set (SettingsIds::checkForUpdates, "0");
    EXPECT_FALSE (openAndWait());
    EXPECT_EQ (site.count ("lastVersion.php"), 0);
    EXPECT_EQ (get (SettingsIds::lastVersionCheck), "");

    globalSettings.getSettings().removeProperty (SettingsIds::checkForUpdates, nullptr);
    EXPECT_TRUE (openAndWait());
}

TEST_F (PluginEditorUpdatesTest, TwoWindowsOneAfterTheOtherCheckOnce)
{
    ASSERT_TRUE (openAndWait());
    editor = nullptr;
    site.now += hour;
    EXPECT_FALSE (openAndWait());
    EXPECT_EQ (site.count ("lastVersion.php"), 1);
}

TEST_F (PluginEditorUpdatesTest, TwoWindowsAtTheSameTimeCheckOnceAndShowOneNotice)
{
    TestProcessor otherProcessor;
    otherProcessor.updateEnvironment = site.makeEnvironment();
    const auto first = open();
    const std::unique_ptr<PluginEditor> second (dynamic_cast<PluginEditor*> (otherProcessor.createEditor()));
    ASSERT_TRUE (pumpUntil ([&] { return first->isUpdateNoticeOpen(); }));
    EXPECT_FALSE (second->getUpdateChecker().isThreadRunning());
    EXPECT_FALSE (second->isUpdateNoticeOpen());
    EXPECT_EQ (site.count ("lastVersion.php"), 1);
}

TEST_F (PluginEditorUpdatesTest, AnOpenWindowNeverChecksAgain)
{
    ASSERT_TRUE (openAndWait());
    site.now += 10 * day;
    EXPECT_FALSE (pumpUntil ([this] { return site.count ("lastVersion.php") > 1; }, 0.5));
}

//==============================================================================
TEST_F (PluginEditorUpdatesTest, TheSameVersionShowsNoNotice)
{
    site.setReplies (makeReply ("4.5.6", site.now), "New");
    ASSERT_TRUE (openAndWait());
    EXPECT_EQ (site.count ("changeLogMac.php"), 0);
    EXPECT_EQ (get (SettingsIds::lastVersionCheck), juce::String (site.now));
    EXPECT_EQ (get (SettingsIds::lastChangeLogTime), "");
}

TEST_F (PluginEditorUpdatesTest, AnOldReleaseIsAnnouncedOnceInSevenDays)
{
    set (SettingsIds::lastChangeLogTime, site.now - week);
    ASSERT_TRUE (openAndWait());
    EXPECT_FALSE (isNoticeOpen());
    EXPECT_EQ (site.count ("changeLogMac.php"), 0);
    EXPECT_EQ (get (SettingsIds::lastChangeLogTime), juce::String (site.now - week));

    editor = nullptr;
    site.now += day;
    ASSERT_TRUE (openAndWait());
    EXPECT_TRUE (isNoticeOpen());
}

TEST_F (PluginEditorUpdatesTest, ANewReleaseIsAnnouncedAtEachCheckOfItsFirstDay)
{
    set (SettingsIds::lastChangeLogTime, site.now - 1);
    site.setReplies (makeReply ("4.6.0", site.now - day + 1), "New");
    ASSERT_TRUE (openAndWait());
    EXPECT_TRUE (isNoticeOpen());

    editor = nullptr;
    site.now += day;
    ASSERT_TRUE (openAndWait());
    EXPECT_FALSE (isNoticeOpen());
}

TEST_F (PluginEditorUpdatesTest, AReleaseWithoutADateIsAnnouncedOnceInSevenDays)
{
    site.setReplies ("macVersion:4.6.0", "New");
    ASSERT_TRUE (openAndWait());
    EXPECT_TRUE (isNoticeOpen());

    for (int i = 1; i <= 8; ++i)
    {
        editor = nullptr;
        site.now += day;
        ASSERT_TRUE (openAndWait());
        EXPECT_EQ (isNoticeOpen(), i == 8) << i;
    }
}

//==============================================================================
TEST_F (PluginEditorUpdatesTest, AFailedCheckCountsAsOne)
{
    site.setReplies (std::nullopt, "New");
    ASSERT_TRUE (openAndWait());
    EXPECT_FALSE (isNoticeOpen());
    EXPECT_EQ (get (SettingsIds::lastVersionCheck), juce::String (site.now));
}

TEST_F (PluginEditorUpdatesTest, AMissingChangeLogIsNotRequestedAgainForAWeek)
{
    site.setReplies (makeReply ("4.6.0", site.now - 30 * day), std::nullopt);
    ASSERT_TRUE (openAndWait());
    EXPECT_EQ (site.count ("changeLogMac.php"), 1);
    EXPECT_FALSE (isNoticeOpen());
    EXPECT_EQ (get (SettingsIds::lastChangeLogTime), juce::String (site.now));

    editor = nullptr;
    site.now += day;
    ASSERT_TRUE (openAndWait());
    EXPECT_EQ (site.count ("changeLogMac.php"), 1);
}

TEST_F (PluginEditorUpdatesTest, AWindowThatClosesBeforeTheChangeLogComesShowsNoNotice)
{
    editor = open();
    ASSERT_TRUE (pumpUntil ([this] { return get (SettingsIds::lastChangeLogTime).isNotEmpty(); }));
    editor = nullptr;
    orlo::test::pumpPending();
    EXPECT_EQ (get (SettingsIds::lastVersionCheck), juce::String (site.now));
}

//==============================================================================
TEST_F (PluginEditorUpdatesTest, TheNoticeDisablesTheRestUntilItIsClosed)
{
    editor = open();
    juce::Component content, disabledBefore;
    editor->addAndMakeVisible (content);
    editor->addAndMakeVisible (disabledBefore);
    disabledBefore.setEnabled (false);
    ASSERT_TRUE (pumpUntil ([this] { return isNoticeOpen(); }));

    auto& notice = editor->getUpdateNotice();
    EXPECT_TRUE (notice.isEnabled());
    EXPECT_FALSE (content.isEnabled());

    for (auto* const child : editor->getChildren())
        EXPECT_EQ (child->isEnabled(), child == &notice);

    EXPECT_GT (editor->getIndexOfChildComponent (&notice), editor->getIndexOfChildComponent (&content));

    EXPECT_TRUE (notice.keyPressed (juce::KeyPress (juce::KeyPress::escapeKey)));
    EXPECT_FALSE (isNoticeOpen());
    EXPECT_FALSE (notice.isVisible());
    EXPECT_TRUE (content.isEnabled());
    EXPECT_TRUE (disabledBefore.isEnabled());
    EXPECT_TRUE (site.openedPages.empty());
}

TEST_F (PluginEditorUpdatesTest, TheDownloadButtonClosesTheNoticeToo)
{
    ASSERT_TRUE (openAndWait());
    ASSERT_TRUE (isNoticeOpen());
    EXPECT_TRUE (editor->getUpdateNotice().keyPressed (juce::KeyPress (juce::KeyPress::returnKey)));
    EXPECT_FALSE (isNoticeOpen());
    ASSERT_EQ (site.openedPages.size(), 1u);
    EXPECT_EQ (site.openedPages[0].toString (false), processor.getProductUrl());
}

TEST_F (PluginEditorUpdatesTest, TheNoticeCoversTheWindowAtEachSize)
{
    ASSERT_TRUE (openAndWait());

    for (const auto size : { juce::Point<int> (300, 200), juce::Point<int> (900, 700) })
    {
        editor->setSize (size.x, size.y);
        EXPECT_EQ (editor->getUpdateNotice().getBounds(), juce::Rectangle<int> (size.x, size.y));
    }
}

//==============================================================================
TEST_F (PluginEditorUpdatesTest, AServerThatNeverAnswersDelaysNeitherOpeningNorClosing)
{
    using Clock = std::chrono::steady_clock;

    HttpServer silent ([] (HttpServer::Connection& connection) { connection.wait (60000); });
    auto withServer = Clock::duration::max(), withoutCheck = Clock::duration::max();

    const auto measure = [this, &silent] (size_t numRequests)
    {
        const auto opened = Clock::now();
        auto window = open();
        auto taken = Clock::now() - opened;

        if (numRequests > 0)
        {
            EXPECT_TRUE (pumpUntil ([&] { return silent.getRequests().size() == numRequests; }));
        }

        const auto closed = Clock::now();
        window = nullptr;
        return taken + (Clock::now() - closed);
    };

    // The shortest of several times counts, since a busy machine can delay any one of them.
    for (size_t i = 1; i <= 4; ++i)
    {
        processor.updateEnvironment.makeTransport = &HttpTransport::makeForThisSystem;
        processor.releaseNotesUrl = silent.getAddress();
        set (SettingsIds::checkForUpdates, "1");
        withServer = std::min (withServer, measure (i));

        set (SettingsIds::checkForUpdates, "0");
        withoutCheck = std::min (withoutCheck, measure (0));
    }

    // Waiting for the reply or for the thread's own end would take 15 s and more.
    RecordProperty ("millisecondsMore", int ((withServer - withoutCheck) / std::chrono::milliseconds (1)));
    EXPECT_LT (withServer, withoutCheck + std::chrono::seconds (5));
}

} // namespace
} // namespace mk::pluginCore::test
