// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The folder for all users' application data, one file per platform. On Linux the first of the
    system's data folders (XDG_DATA_DIRS) that contains the product's own folder, else the data folder
    that this build is installed into. productPath is the path of the product's folder below it; its parts
    are separated by "/". */
[[nodiscard]] juce::File getSystemPresetBase (const juce::String& productPath);

/** The folder for the user's own application data. */
[[nodiscard]] juce::File getUserPresetBase();

} // namespace mk::pluginCore
