// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The folder that holds all users' application data, one file per platform. On Linux the first of the
    system's data folders (XDG_DATA_DIRS) in which the product's own folder is found, else the data folder
    that this build is installed into. The path of the product's folder below it is given; its parts are
    separated by "/". */
[[nodiscard]] juce::File getSystemPresetBase (const juce::String& productPath);

/** The folder that holds the user's application data. */
[[nodiscard]] juce::File getUserPresetBase();

} // namespace mk::pluginCore
