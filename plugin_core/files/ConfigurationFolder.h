// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** [Linux] The folder that holds the user's configuration: XDG_CONFIG_HOME if it is an absolute path, as the
    XDG base directory rules require, else "~/.config". Any thread. */
[[nodiscard]] juce::File getConfigurationFolder();

} // namespace mk::pluginCore
