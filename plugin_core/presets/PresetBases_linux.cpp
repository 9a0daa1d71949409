// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetBases.h"

#include "plugin_core/files/ConfigurationFolder.h"

namespace mk::pluginCore
{

namespace
{
/** The value of a variable, or where the XDG base directory rules put it if it is not set or empty. */
[[nodiscard]] juce::String getVariable (const char* name, const char* byDefault)
{
    const auto value = juce::SystemStats::getEnvironmentVariable (name, {});
    return value.isNotEmpty() ? value : juce::String (byDefault);
}
} // namespace

juce::File getSystemPresetBase (const juce::String& productPath)
{
    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory);
    const auto ownData = home.getChildFile (".local/share").getFullPathName();
    const auto paths = getVariable ("XDG_DATA_HOME", ownData.toRawUTF8()) + ":"
                       + getVariable ("XDG_DATA_DIRS", "/usr/local/share:/usr/share");

    for (const auto& path : juce::StringArray::fromTokens (paths, ":", {}))
        if (juce::File::isAbsolutePath (path) && juce::File (path).getChildFile (productPath).isDirectory())
            return juce::File (path);

    return juce::File (PLUGIN_CORE_DATA_FOLDER);
}

juce::File getUserPresetBase() { return getConfigurationFolder(); }

} // namespace mk::pluginCore
