// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** [Linux] The folder that the user's configuration lies in: XDG_CONFIG_HOME if it is a whole path, as the
    freedesktop rules ask for, else "~/.config". Any thread. */
[[nodiscard]] juce::File getConfigurationFolder();

} // namespace mk::pluginCore
