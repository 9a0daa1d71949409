// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/presets/PresetsManager.h"

namespace mk::orlo::test
{

/** Saves the current state as a preset and then selects no preset. [message thread] */
inline juce::File writePreset (pluginCore::PresetsManager& presets, const juce::File& file)
{
    file.getParentDirectory().createDirectory();
    presets.savePresetFile (file, false);
    presets.setCurrentPresetFile ({});
    return file;
}

/** The same for a preset of the user, by its path below the user's folder without the extension. */
inline juce::File writeUserPreset (pluginCore::PresetsManager& presets, const juce::String& name)
{
    return writePreset (presets, presets.getUserFolder().getChildFile (name + ".mkpreset"));
}

} // namespace mk::orlo::test
