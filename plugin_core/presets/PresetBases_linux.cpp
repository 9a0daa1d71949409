// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetBases.h"

#include "plugin_core/files/ConfigurationFolder.h"

namespace mk::pluginCore
{

juce::File getSystemPresetBase (const juce::String& productPath)
{
    // If the variable is not set or empty, the XDG base directory rules define this default.
    const auto variable = juce::SystemStats::getEnvironmentVariable ("XDG_DATA_DIRS", {});
    const auto paths = variable.isNotEmpty() ? variable : juce::String ("/usr/local/share:/usr/share");

    for (const auto& path : juce::StringArray::fromTokens (paths, ":", {}))
        if (juce::File::isAbsolutePath (path) && juce::File (path).getChildFile (productPath).isDirectory())
            return juce::File (path);

    return juce::File (PLUGIN_CORE_DATA_FOLDER);
}

juce::File getUserPresetBase() { return getConfigurationFolder(); }

} // namespace mk::pluginCore
