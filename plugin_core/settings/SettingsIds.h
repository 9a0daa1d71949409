// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** The keys of the per-user settings tree, spelled as in the file. A missing key reads as its default;
    a value that should be a number and is not reads as 0. */
namespace mk::pluginCore::SettingsIds
{

/** The type of the tree, and the only key of the file. */
inline const juce::Identifier settings { "settings" };

/** Text: the XML of an element of this name that refers to a preset file. Absent: no default preset. */
inline const juce::Identifier defaultPreset { "defaultPreset" };

/** Integer: the id of the entry last chosen in the colour map box, which is the map's index + 1.
    Absent: 0. The misspelling is kept, since existing files contain it. */
inline const juce::Identifier preferedMap { "preferedMap" };

/** Text: "1" means on, anything else off. Absent: on. No code writes it; users edit it by hand. */
inline const juce::Identifier checkForUpdates { "checkForUpdates" };

/** Text: how many seconds of sound a window keeps, 0 (none) to 600. Absent: 60. No code writes it; users edit it by
    hand. */
inline const juce::Identifier historySeconds { "historySeconds" };

/** Text: decimal milliseconds since 1970. Absent: 0. */
inline const juce::Identifier lastVersionCheck { "lastVersionCheck" };
inline const juce::Identifier lastChangeLogTime { "lastChangeLogTime" };

/** Text: the editor's size after the last resize in pixels, as decimal integers. Absent: "-1". */
inline const juce::Identifier defaultWidth { "defaultWidth" };
inline const juce::Identifier defaultHeight { "defaultHeight" };

/** Text: the full path of the last exported picture. Absent: empty. */
inline const juce::Identifier lastExportFile { "lastExportFile" };

/** Text: "x y width height" in pixels with x and y 0. Absent: empty. */
inline const juce::Identifier latestCleanViewBounds { "latestCleanViewBounds" };

/** Text: the concert pitch that the user has chosen last, in hertz. Absent: 440. */
inline const juce::Identifier concertPitch { "concertPitch" };

/** Text: the number of middle C's octave, or "host" for that of the host, as the user has chosen last. Absent: "host". */
inline const juce::Identifier middleC { "middleC" };

/** Reserved keys of the file: no code may read or write them. */
inline const juce::Identifier lastWidth { "lastWidth" };
inline const juce::Identifier lastHeight { "lastHeight" };

} // namespace mk::pluginCore::SettingsIds
