// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

namespace mk::pluginCore
{

/** Decides when to check for a new version and when to show the notice of one. Times are in milliseconds since
    1970. [message thread] */
struct UpdateSchedule
{
    bool checkForUpdates = true;
    juce::int64 lastVersionCheck = 0;
    juce::int64 lastChangeLogTime = 0;

    /** Reads the schedule from the per-user settings. */
    [[nodiscard]] static UpdateSchedule readFrom (const juce::ValueTree& settings);

    /** True if the last check was at least 24 hours ago, unless checks are switched off. */
    [[nodiscard]] bool isCheckDue (juce::int64 now) const noexcept;

    /** True at each check in the first 24 hours after a release, and from then on if the last notice was more
        than 7 days ago. */
    [[nodiscard]] bool isNoticeDue (juce::int64 now, juce::int64 releaseDate) const noexcept;

    /** These store the time of a check or of a notice in the settings, for the next window. */
    static void storeVersionCheck (juce::ValueTree settings, juce::int64 now);
    static void storeChangeLogTime (juce::ValueTree settings, juce::int64 now);
};

} // namespace mk::pluginCore
