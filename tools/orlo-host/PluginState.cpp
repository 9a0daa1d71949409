// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginState.h"

#include "HostError.h"

namespace mk::orlo::host
{
namespace
{
// JUCE's VST3 hosting wraps a plug-in's state into these XML elements.
constexpr auto containerTag = "VST3PluginState";
constexpr auto componentTag = "IComponent";
} // namespace

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

    const auto container = juce::AudioProcessor::getXmlFromBinary (state.getData(), int (state.getSize()));

    if (container == nullptr || ! container->hasTagName (containerTag))
        throw HostError (file.getFullPathName() + " holds no state of a plug-in");

    plugin.setStateInformation (state.getData(), int (state.getSize()));
}

void loadPreset (juce::AudioPluginInstance& plugin, const juce::File& file)
{
    const auto preset = file.existsAsFile() ? juce::parseXML (file) : nullptr;

    if (preset == nullptr || preset->getChildByName ("PARAMS") == nullptr)
        throw HostError (file.getFullPathName() + " is no preset");

    juce::MemoryBlock component, state;
    juce::AudioProcessor::copyXmlToBinary (*preset, component);

    juce::XmlElement container (containerTag);
    container.createNewChildElement (componentTag)->addTextElement (component.toBase64Encoding());
    juce::AudioProcessor::copyXmlToBinary (container, state);
    plugin.setStateInformation (state.getData(), int (state.getSize()));
}

void writeWholeFile (const juce::File& file, const void* data, size_t size)
{
    if (! file.getParentDirectory().isDirectory() || file.isDirectory() || ! file.replaceWithData (data, size))
        throw HostError ("cannot write " + file.getFullPathName());
}

} // namespace mk::orlo::host
