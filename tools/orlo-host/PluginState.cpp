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

/** Gives the plug-in its own form of a state. */
void setComponentState (juce::AudioPluginInstance& plugin, const juce::XmlElement& content)
{
    juce::MemoryBlock component, state;
    juce::AudioProcessor::copyXmlToBinary (content, component);

    juce::XmlElement container (containerTag);
    container.createNewChildElement (componentTag)->addTextElement (component.toBase64Encoding());
    juce::AudioProcessor::copyXmlToBinary (container, state);
    plugin.setStateInformation (state.getData(), int (state.getSize()));
}

/** The plug-in's own form of its state; null if it has another one. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> getComponentState (juce::AudioPluginInstance& plugin)
{
    juce::MemoryBlock state, component;
    plugin.getStateInformation (state);
    const auto container = juce::AudioProcessor::getXmlFromBinary (state.getData(), int (state.getSize()));
    const auto* const element = container != nullptr ? container->getChildByName (componentTag) : nullptr;

    if (element == nullptr || ! component.fromBase64Encoding (element->getAllSubText()))
        return nullptr;

    return juce::AudioProcessor::getXmlFromBinary (component.getData(), int (component.getSize()));
}

/** The element with the name, at any depth; null if there is none. */
[[nodiscard]] juce::XmlElement* findElement (juce::XmlElement& element, juce::StringRef name)
{
    if (element.hasTagName (name))
        return &element;

    for (auto* child : element.getChildIterator())
        if (auto* const found = findElement (*child, name))
            return found;

    return nullptr;
}
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

    setComponentState (plugin, *preset);
}

void explore (juce::AudioPluginInstance& plugin, const ExploredRange& range)
{
    const auto content = getComponentState (plugin);
    auto* const view = content != nullptr ? findElement (*content, "UIVIEW") : nullptr;

    if (view == nullptr)
        throw HostError (plugin.getName() + " cannot be told what to explore");

    view->setAttribute ("EXPLORED", juce::String (range.start, 6) + " " + juce::String (range.length, 6));
    setComponentState (plugin, *content);
}

void writeWholeFile (const juce::File& file, const void* data, size_t size)
{
    if (! file.getParentDirectory().isDirectory() || file.isDirectory() || ! file.replaceWithData (data, size))
        throw HostError ("cannot write " + file.getFullPathName());
}

} // namespace mk::orlo::host
