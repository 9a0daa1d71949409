// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginState.h"

#include "HostError.h"

namespace mk::orlo::host
{

void saveState (juce::AudioPluginInstance& plugin, const juce::File& file)
{
    juce::MemoryBlock state;
    plugin.getStateInformation (state);
    writeWholeFile (file, state.getData(), state.getSize());
}

void loadState (juce::AudioPluginInstance& plugin, const juce::File& file)
{
    juce::MemoryBlock state;

    if (! file.existsAsFile() || ! file.loadFileAsData (state))
        throw HostError ("cannot read " + file.getFullPathName());

    // JUCE's VST3 hosting wraps a plug-in's state into this XML element.
    const auto container = juce::AudioProcessor::getXmlFromBinary (state.getData(), int (state.getSize()));

    if (container == nullptr || ! container->hasTagName ("VST3PluginState"))
        throw HostError (file.getFullPathName() + " holds no state of a plug-in");

    plugin.setStateInformation (state.getData(), int (state.getSize()));
}

void writeWholeFile (const juce::File& file, const void* data, size_t size)
{
    if (! file.getParentDirectory().isDirectory() || file.isDirectory() || ! file.replaceWithData (data, size))
        throw HostError ("cannot write " + file.getFullPathName());
}

} // namespace mk::orlo::host
