// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PresetsManager.h"

namespace mk::pluginCore
{

/** The rows of the preset menu, a snapshot of the disk and the session. Created anew each time the menu
    opens. [message thread] */
class PresetMenu
{
public:
    /** The ids of the rows. Presets have consecutive ids from firstPreset on. */
    enum Id
    {
        save = 1,
        saveAs = 2,
        init = 3,
        setAsDefault = 4,
        revealFolder = 5, /**< has no row yet */
        manual = 6,
        firstPreset = 7
    };

    /** Reads the user's folder and the current preset. Pass false for a product without a default preset to
        omit the row that sets it. */
    [[nodiscard]] static PresetMenu make (const PresetsManager& manager, bool withDefaultPreset);

    /** The file for a preset's row id; an empty file for any other id. */
    [[nodiscard]] juce::File getPresetFile (int id) const;

    juce::PopupMenu menu;

    /** The presets, in the order of their ids. */
    juce::Array<juce::File> presetFiles;

    /** The current preset when the menu was made. */
    juce::File currentPresetFile;
};

} // namespace mk::pluginCore
