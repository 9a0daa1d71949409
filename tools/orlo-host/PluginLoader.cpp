// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginLoader.h"

#include "HostError.h"

#include <array>

namespace mk::orlo::host
{

std::unique_ptr<juce::AudioPluginInstance> loadPlugin (const juce::File& bundle, double sampleRate, int blockSize)
{
    const auto& path = bundle.getFullPathName();

    if (! bundle.exists())
        throw HostError ("there is no plug-in " + path);

    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    format.findAllTypesForFile (found, path);

    if (found.isEmpty())
        throw HostError (path + " is no VST3 plug-in that can be loaded");

    juce::String reason;
    auto plugin = format.createInstanceFromDescription (*found.getFirst(), sampleRate, blockSize, reason);

    if (plugin == nullptr)
        throw HostError (path + " cannot be loaded: " + reason);

    plugin->enableAllBuses();
    return plugin;
}

juce::File findPlugin (const juce::File& programFolder, const juce::String& pathInBuild)
{
    // Installed with a prefix, as /usr is one, and for one user, into the home folder's .local/bin.
    constexpr std::array installed { "../lib/vst3/Orlo.vst3", "../../.vst3/Orlo.vst3" };
    auto built = programFolder.getChildFile (pathInBuild);

    if (! built.exists())
        for (const auto* path : installed)
            if (auto plugin = programFolder.getChildFile (path); plugin.exists())
                return plugin;

    return built;
}

} // namespace mk::orlo::host
