// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TestProcessor.h"

#include "TestPluginEditor.h"

#include "plugin_core/state/StateBlob.h"

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] pluginCore::ProductInfo makeProduct() { return { "Test-Plug_in: 1", "Somebody", "4.5.6", 2030 }; }

[[nodiscard]] juce::AudioProcessorValueTreeState::ParameterLayout makeLayout()
{
    const juce::NormalisableRange<float> gains (-140.0f, 0.0f, 0.0f);
    const juce::NormalisableRange<float> skewed (0.0f, 100.0f, 0.0f, 0.30103f);

    return { std::make_unique<juce::AudioParameterFloat> (juce::ParameterID ("floor", 1), "Floor", gains, -100.0f),
             std::make_unique<juce::AudioParameterFloat> (juce::ParameterID ("ceiling", 1), "Ceiling", gains, 0.0f),
             std::make_unique<juce::AudioParameterFloat> (juce::ParameterID ("skewed", 1), "Skewed", skewed, 0.0f),
             std::make_unique<juce::AudioParameterChoice> (
                 juce::ParameterID ("choice", 1), "Choice", juce::StringArray { "A", "B", "C", "D" }, 1),
             std::make_unique<juce::AudioParameterBool> (juce::ParameterID ("flag", 1), "Flag", false) };
}

void addParameters (juce::XmlElement& xml, std::initializer_list<std::pair<const char*, const char*>> values)
{
    auto* const parameters = xml.createNewChildElement ("PARAMS");

    for (const auto& [id, value] : values)
    {
        auto* const parameter = parameters->createNewChildElement ("PARAM");
        parameter->setAttribute ("id", id);
        parameter->setAttribute ("value", value);
    }
}

} // namespace

TestProcessor::TestProcessor() : TestProcessor (std::make_unique<TemporaryFolder>()) {}

TestProcessor::TestProcessor (std::unique_ptr<TemporaryFolder> folder)
    : PluginProcessor (BusesProperties()
                           .withInput ("Input", juce::AudioChannelSet::stereo(), true)
                           .withOutput ("Output", juce::AudioChannelSet::stereo(), true),
                       makeProduct(),
                       makeLayout(),
                       pluginCore::makePresetFolders (makeProduct(),
                                                      folder->get().getChildFile ("system"),
                                                      folder->get().getChildFile ("user"))),
      presetsBase (std::move (folder))
{
}

std::unique_ptr<pluginCore::ProcessorEditor> TestProcessor::createEditorInternal()
{
    return std::make_unique<TestPluginEditor> (*this, editorAspectRatio, updateEnvironment);
}

juce::RangedAudioParameter& TestProcessor::getParameter (const juce::String& id)
{
    return *getParameterState().getParameter (id);
}

float TestProcessor::getValue (const juce::String& id) { return getParameterState().getRawParameterValue (id)->load(); }

void TestProcessor::setValue (const juce::String& id, float value)
{
    auto& parameter = getParameter (id);
    parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
}

void TestProcessor::runBlock()
{
    juce::AudioBuffer<float> buffer (2, 64);
    juce::MidiBuffer midi;
    buffer.clear();
    processBlock (buffer, midi);
}

std::unique_ptr<juce::XmlElement>
    TestProcessor::makeSession (std::initializer_list<std::pair<const char*, const char*>> values) const
{
    auto xml = std::make_unique<juce::XmlElement> (tag);
    addParameters (*xml, values);
    return xml;
}

juce::File TestProcessor::writePreset (const juce::String& name,
                                       std::initializer_list<std::pair<const char*, const char*>> values)
{
    auto file = getPresetsManager().getUserFolder().getChildFile (name);
    file.getParentDirectory().createDirectory();
    makeSession (values)->writeTo (file);
    return file;
}

void TestProcessor::restore (const juce::XmlElement& session)
{
    const auto blob = pluginCore::writeStateBlob (session);
    setStateInformation (blob.getData(), int (blob.getSize()));
}

} // namespace mk::orlo::test
