// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

namespace mk::pluginCore
{

/** When the site is asked for a new version, and when the user is told of one. Times are milliseconds since
    1970. [message thread] */
struct UpdateSchedule
{
    bool checkForUpdates = true;
    juce::int64 lastVersionCheck = 0;
    juce::int64 lastChangeLogTime = 0;

    /** What the per-user settings say. */
    [[nodiscard]] static UpdateSchedule readFrom (const juce::ValueTree& settings);

    /** Once in 24 hours, unless it is switched off. */
    [[nodiscard]] bool isCheckDue (juce::int64 now) const noexcept;

    /** The user is told at each check in the first 24 hours after a release, and from then on at most once
        in 7 days. */
    [[nodiscard]] bool isNoticeDue (juce::int64 now, juce::int64 releaseDate) const noexcept;

    /** Notes in the settings, for the next window, that the site was asked or the user told. */
    static void storeVersionCheck (juce::ValueTree settings, juce::int64 now);
    static void storeChangeLogTime (juce::ValueTree settings, juce::int64 now);
};

} // namespace mk::pluginCore
