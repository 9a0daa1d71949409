// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The folder of installed application data, one file per platform. On Linux the first that contains the product's own
    folder: the user's data folder (XDG_DATA_HOME), which an installation for one user fills, then the system's
    (XDG_DATA_DIRS); else the data folder that this build is installed into. productPath is the path of the product's
    folder below it; its parts are separated by "/". */
[[nodiscard]] juce::File getSystemPresetBase (const juce::String& productPath);

/** The folder for the user's own application data. */
[[nodiscard]] juce::File getUserPresetBase();

} // namespace mk::pluginCore
