// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

namespace mk::pluginCore
{

/** The file of the per-user settings, one implementation per platform: the default file of the options, but on
    Linux below the user's configuration folder, beside the presets. On Linux a file that an earlier version left
    in the home folder is moved there first; if that fails, the old file is returned, so that no settings
    are lost. Blocks on the disk; any thread but the audio thread. */
[[nodiscard]] juce::File findSettingsFile (const juce::PropertiesFile::Options& options);

} // namespace mk::pluginCore
