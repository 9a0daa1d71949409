// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginProcessor.h"

#include "plugin_core/parameters/NonAutomatableParameter.h"

namespace mk::pluginCore
{
namespace
{
constexpr int undoUnits = 30000;
constexpr int undoTransactions = 30;
constexpr auto parameterTreeType = "PARAMS";

namespace attribute
{
constexpr auto version = "version";
constexpr auto editorWidth = "pluginEditorWidth";
constexpr auto editorHeight = "pluginEditorHeight";
} // namespace attribute

void addIfAboveZero (juce::XmlElement& xml, const char* name, int value)
{
    if (value > 0)
        xml.setAttribute (name, value);
}

/** Replaces a tree's content and keeps the tree itself, which others hold on to. */
void replaceContent (juce::ValueTree& tree, const juce::XmlElement* xml)
{
    if (xml != nullptr)
        tree.copyPropertiesAndChildrenFrom (juce::ValueTree::fromXml (*xml), nullptr);
}
} // namespace

PluginProcessor::PluginProcessor (const BusesProperties& buses,
                                  ProductInfo product,
                                  juce::AudioProcessorValueTreeState::ParameterLayout layout)
    : juce::AudioProcessor (buses),
      productInfo (std::move (product)),
      undoManager (undoUnits, undoTransactions),
      parameterState (*this, &undoManager, parameterTreeType, std::move (layout))
{
}

PluginProcessor::~PluginProcessor() = default;

//==============================================================================
void PluginProcessor::prepareToPlay (double rate, int maxBlockSize)
{
    sampleRate.store (rate, std::memory_order_relaxed);

    const juce::dsp::ProcessSpec spec { rate,
                                        juce::uint32 (juce::jmax (0, maxBlockSize)),
                                        juce::uint32 (juce::jmax (1, getTotalNumOutputChannels())) };
    bypassDelay.prepare (spec, getLatencySamples());
    prepareInternal (maxBlockSize, rate);
}

void PluginProcessor::processBlock (juce::AudioBuffer<float>& buffer, juce::MidiBuffer& midi)
{
    const juce::ScopedNoDenormals noDenormals;

    if (resetRequested.exchange (false, std::memory_order_acq_rel))
        onResetRequested();

    processInternal (buffer, midi);
}

void PluginProcessor::processBlockBypassed (juce::AudioBuffer<float>& buffer, juce::MidiBuffer&)
{
    delayByLatency (buffer);
}

bool PluginProcessor::isBusesLayoutSupported (const BusesLayout& layout) const
{
    const auto output = layout.getMainOutputChannelSet();
    const auto monoOrStereo = output == juce::AudioChannelSet::mono() || output == juce::AudioChannelSet::stereo();
    return monoOrStereo && layout.getMainInputChannelSet() == output;
}

//==============================================================================
void PluginProcessor::applyInitialSettings() {}

juce::String PluginProcessor::getVersionText() const
{
    juce::String text = getWrapperTypeDescription (wrapperType);
    text << " - v" << productInfo.version;

#if JUCE_INTEL
    text << " (x64)";
#endif

    return text;
}

juce::AudioProcessorEditor* PluginProcessor::createEditor()
{
    // Read first: an editor sizes itself while it is made, and that is remembered too.
    const auto width = pluginEditorWidth.load (std::memory_order_relaxed);
    const auto height = pluginEditorHeight.load (std::memory_order_relaxed);
    auto editor = createEditorInternal();

    if (width > 0 && height > 0)
        editor->setSize (width, height);

    // The framework's interface wants the caller to own a plain pointer.
    return editor.release();
}

std::unique_ptr<juce::AudioParameterFloat> PluginProcessor::createInternalParam (int versionHint)
{
    const juce::ParameterID id { "internal", versionHint };
    const juce::NormalisableRange<float> range (0.0f, 1.0f, 0.0f);
    const auto attributes = juce::AudioParameterFloatAttributes().withStringFromValueFunction (
        [] (float, int) { return juce::String ("-"); });

    const auto automatable = juce::PluginHostType().isReaper()
                             && juce::PluginHostType::getPluginLoadedAs() == juce::AudioProcessor::wrapperType_VST3;

    if (automatable)
        return std::make_unique<juce::AudioParameterFloat> (id, "internal", range, 0.0f, attributes);

    return std::make_unique<NonAutomatableParameter<juce::AudioParameterFloat>> (
        id, "internal", range, 0.0f, attributes);
}

//==============================================================================
void PluginProcessor::getStateInformation (juce::MemoryBlock& destination)
{
    copyXmlToBinary (*getStateXml (true), destination);
}

void PluginProcessor::setStateInformation (const void* data, int size)
{
    if (const auto xml = getXmlFromBinary (data, size))
        setStateFromXml (*xml, true);
}

std::unique_ptr<juce::XmlElement> PluginProcessor::getStateXml (bool forSession)
{
    auto xml = std::make_unique<juce::XmlElement> (productInfo.getXmlTag());
    xml->setAttribute (attribute::version, productInfo.version);

    if (forSession)
    {
        addIfAboveZero (*xml, attribute::editorWidth, pluginEditorWidth.load (std::memory_order_relaxed));
        addIfAboveZero (*xml, attribute::editorHeight, pluginEditorHeight.load (std::memory_order_relaxed));
    }

    xml->addChildElement (parameterState.copyState().createXml().release());

    if (forSession)
        xml->addChildElement (settingsTree.createXml().release());

    if (dataTree.getNumProperties() > 0 || dataTree.getNumChildren() > 0)
        xml->addChildElement (dataTree.createXml().release());

    return xml;
}

bool PluginProcessor::setStateFromXml (const juce::XmlElement& xml, bool forSession)
{
    if (! xml.hasTagName (productInfo.getXmlTag()))
        return false;

    if (forSession)
    {
        pluginEditorWidth.store (xml.getIntAttribute (attribute::editorWidth, -1), std::memory_order_relaxed);
        pluginEditorHeight.store (xml.getIntAttribute (attribute::editorHeight, -1), std::memory_order_relaxed);
    }

    if (const auto* const parameters = xml.getChildByName (parameterTreeType))
        parameterState.replaceState (juce::ValueTree::fromXml (*parameters));

    replaceContent (dataTree, xml.getChildByName (dataTree.getType()));

    if (forSession)
        replaceContent (settingsTree, xml.getChildByName (settingsTree.getType()));

    resetRequested.store (true, std::memory_order_release);
    return true;
}

} // namespace mk::pluginCore
