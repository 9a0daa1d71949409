// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetsManager.h"

namespace mk::pluginCore
{

/** The rows of the preset menu, as the disk and the session are at the moment it is made: made anew for each
    opening. [message thread] */
class PresetMenu
{
public:
    /** What the rows stand for. The presets have the ids from firstPreset on, without a gap. */
    enum Id
    {
        save = 1,
        saveAs = 2,
        init = 3,
        setAsDefault = 4,
        revealFolder = 5, /**< has no row so far */
        manual = 6,
        firstPreset = 7
    };

    /** Looks at the user's folder and the current preset. A product that cannot have a default preset of its
        own leaves that row out. */
    [[nodiscard]] static PresetMenu make (const PresetsManager& manager, bool withDefaultPreset);

    /** The file of a preset's row; an empty file for any other id. */
    [[nodiscard]] juce::File getPresetFile (int id) const;

    juce::PopupMenu menu;

    /** The presets, in the order of their ids. */
    juce::Array<juce::File> presetFiles;

    /** The current preset when the menu was made. */
    juce::File currentPresetFile;
};

} // namespace mk::pluginCore
