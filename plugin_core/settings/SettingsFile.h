// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_data_structures/juce_data_structures.h>

namespace mk::pluginCore
{

/** The file of the per-user settings, one way per platform: where the options say, but on Linux below the
    user's configuration folder, beside the presets. There a file that an earlier version has left in the home
    folder is moved to the new place first; if it cannot be moved, it is the one that is given, so that nothing
    is lost. Blocks on the disk; any thread but the audio thread. */
[[nodiscard]] juce::File findSettingsFile (const juce::PropertiesFile::Options& options);

} // namespace mk::pluginCore
