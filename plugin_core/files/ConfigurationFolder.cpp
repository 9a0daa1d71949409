// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ConfigurationFolder.h"

namespace mk::pluginCore
{

juce::File getConfigurationFolder()
{
    const auto path = juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {});

    if (path.startsWithChar ('/'))
        return juce::File (path);

    return juce::File::getSpecialLocation (juce::File::userApplicationDataDirectory);
}

} // namespace mk::pluginCore
