// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/UpdateSchedule.h"
#include "plugin_core/settings/SettingsIds.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::pluginCore::test
{
namespace
{
constexpr juce::int64 day = 86400000;
constexpr juce::int64 week = 604800000;
constexpr juce::int64 now = 1763683200000;
constexpr auto latest = std::numeric_limits<juce::int64>::max();
constexpr auto earliest = std::numeric_limits<juce::int64>::min();

[[nodiscard]] juce::ValueTree makeSettings() { return juce::ValueTree (SettingsIds::settings); }
} // namespace

TEST (UpdateSchedule, OfEmptySettingsIsOnAndHasNeverChecked)
{
    const auto schedule = UpdateSchedule::readFrom (makeSettings());
    EXPECT_TRUE (schedule.checkForUpdates);
    EXPECT_EQ (schedule.lastVersionCheck, 0);
    EXPECT_EQ (schedule.lastChangeLogTime, 0);
}

TEST (UpdateSchedule, IsOnOnlyForTheTextOne)
{
    for (const auto* const text : { "0", "", "true", "2", "1 ", "01" })
    {
        auto settings = makeSettings();
        settings.setProperty (SettingsIds::checkForUpdates, text, nullptr);
        EXPECT_FALSE (UpdateSchedule::readFrom (settings).checkForUpdates) << text;
    }

    auto settings = makeSettings();
    settings.setProperty (SettingsIds::checkForUpdates, "1", nullptr);
    EXPECT_TRUE (UpdateSchedule::readFrom (settings).checkForUpdates);
}

TEST (UpdateSchedule, ReadsWhatItHasStored)
{
    const auto settings = makeSettings();
    UpdateSchedule::storeVersionCheck (settings, now);
    UpdateSchedule::storeChangeLogTime (settings, now + 1);
    EXPECT_EQ (settings[SettingsIds::lastVersionCheck], juce::var (juce::String (now)));

    const auto schedule = UpdateSchedule::readFrom (settings);
    EXPECT_EQ (schedule.lastVersionCheck, now);
    EXPECT_EQ (schedule.lastChangeLogTime, now + 1);
}

TEST (UpdateSchedule, ChecksOnceInTwentyFourHours)
{
    EXPECT_TRUE ((UpdateSchedule { true, 0, 0 }.isCheckDue (now)));
    EXPECT_FALSE ((UpdateSchedule { true, now - day + 1, 0 }.isCheckDue (now)));
    EXPECT_TRUE ((UpdateSchedule { true, now - day, 0 }.isCheckDue (now)));
}

TEST (UpdateSchedule, NeverChecksWhenSwitchedOff) { EXPECT_FALSE ((UpdateSchedule { false, 0, 0 }.isCheckDue (now))); }

TEST (UpdateSchedule, AnnouncesAReleaseAtEachCheckOfItsFirstDay)
{
    const UpdateSchedule toldJustNow { true, 0, now - 1 };
    EXPECT_TRUE (toldJustNow.isNoticeDue (now, now));
    EXPECT_TRUE (toldJustNow.isNoticeDue (now, now - day + 1));
    EXPECT_FALSE (toldJustNow.isNoticeDue (now, now - day));
}

TEST (UpdateSchedule, AnnouncesAnOlderReleaseOnceInSevenDays)
{
    EXPECT_FALSE ((UpdateSchedule { true, 0, now - week }.isNoticeDue (now, now - 10 * day)));
    EXPECT_TRUE ((UpdateSchedule { true, 0, now - week - 1 }.isNoticeDue (now, now - 10 * day)));
    EXPECT_TRUE ((UpdateSchedule { true, 0, 0 }.isNoticeDue (now, 0)));
}

TEST (UpdateSchedule, ToleratesAnyNumber)
{
    for (const auto a : { earliest, juce::int64 (-1), juce::int64 (0), latest })
    {
        EXPECT_EQ ((UpdateSchedule { true, a, a }.isCheckDue (now)), a != latest);
        EXPECT_EQ ((UpdateSchedule { true, a, now }.isNoticeDue (now, a)), a == latest);
    }
}

} // namespace mk::pluginCore::test
