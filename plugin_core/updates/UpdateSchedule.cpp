// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UpdateSchedule.h"

#include "plugin_core/settings/SettingsIds.h"
#include "plugin_core/text/LeadingInteger.h"

#include <limits>

namespace mk::pluginCore
{
namespace
{
constexpr auto oneDay = juce::int64 { 24 } * 60 * 60 * 1000;
constexpr juce::int64 oneWeek = 7 * oneDay;

/** The sum of time and period, clamped to the largest value: files and replies can contain any time. */
[[nodiscard]] constexpr juce::int64 later (juce::int64 time, juce::int64 period) noexcept
{
    constexpr auto latest = std::numeric_limits<juce::int64>::max();
    return time > latest - period ? latest : time + period;
}
} // namespace

UpdateSchedule UpdateSchedule::readFrom (const juce::ValueTree& settings)
{
    return { settings.getProperty (SettingsIds::checkForUpdates, "1").toString() == "1",
             parseLeadingInteger (settings[SettingsIds::lastVersionCheck].toString()),
             parseLeadingInteger (settings[SettingsIds::lastChangeLogTime].toString()) };
}

bool UpdateSchedule::isCheckDue (juce::int64 now) const noexcept
{
    return checkForUpdates && now >= later (lastVersionCheck, oneDay);
}

bool UpdateSchedule::isNoticeDue (juce::int64 now, juce::int64 releaseDate) const noexcept
{
    const auto isFresh = now < later (releaseDate, oneDay);
    const auto wasToldLately = now <= later (lastChangeLogTime, oneWeek);
    return isFresh || ! wasToldLately;
}

void UpdateSchedule::storeVersionCheck (juce::ValueTree settings, juce::int64 now)
{
    settings.setProperty (SettingsIds::lastVersionCheck, juce::String (now), nullptr);
}

void UpdateSchedule::storeChangeLogTime (juce::ValueTree settings, juce::int64 now)
{
    settings.setProperty (SettingsIds::lastChangeLogTime, juce::String (now), nullptr);
}

} // namespace mk::pluginCore
