// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

/** The keys of the per-user settings tree, spelled as they stand in the file. A key that is missing there
    reads as its default; a value that should be a number and is none reads as 0. */
namespace mk::pluginCore::SettingsIds
{

/** The tree itself, and the one key of the file. */
inline const juce::Identifier settings { "settings" };

/** Text: the XML of an element of this name that refers to a preset file. Absent: no default preset. */
inline const juce::Identifier defaultPreset { "defaultPreset" };

/** Integer: the id of the entry last chosen in the colour map box, which is the map's index + 1.
    Absent: 0. The spelling stays, since files in use hold it. */
inline const juce::Identifier preferedMap { "preferedMap" };

/** Text: "1" means on, anything else off. Absent: on. No code writes it, only a hand edit changes it. */
inline const juce::Identifier checkForUpdates { "checkForUpdates" };

/** Text: decimal milliseconds since 1970. Absent: 0. */
inline const juce::Identifier lastVersionCheck { "lastVersionCheck" };
inline const juce::Identifier lastChangeLogTime { "lastChangeLogTime" };

/** Text: the editor's size of the last resize in pixels, as decimal integers. Absent: "-1". */
inline const juce::Identifier defaultWidth { "defaultWidth" };
inline const juce::Identifier defaultHeight { "defaultHeight" };

/** Text: the full path of the last exported picture. Absent: empty. */
inline const juce::Identifier lastExportFile { "lastExportFile" };

/** Text: "x y width height" in pixels with x and y 0. Absent: empty. */
inline const juce::Identifier latestCleanViewBounds { "latestCleanViewBounds" };

/** Reserved words of the file: no code may give them a meaning. */
inline const juce::Identifier lastWidth { "lastWidth" };
inline const juce::Identifier lastHeight { "lastHeight" };

} // namespace mk::pluginCore::SettingsIds
