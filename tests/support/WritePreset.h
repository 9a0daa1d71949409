// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/presets/PresetsManager.h"

namespace mk::orlo::test
{

/** Writes the present state into a preset and goes back to no preset. [message thread] */
inline juce::File writePreset (pluginCore::PresetsManager& presets, const juce::File& file)
{
    file.getParentDirectory().createDirectory();
    presets.savePresetFile (file, false);
    presets.setCurrentPresetFile ({});
    return file;
}

/** The same with a preset of the user's, by its name with the folders below the user's that it is in. */
inline juce::File writeUserPreset (pluginCore::PresetsManager& presets, const juce::String& name)
{
    return writePreset (presets, presets.getUserFolder().getChildFile (name + ".mkpreset"));
}

} // namespace mk::orlo::test
