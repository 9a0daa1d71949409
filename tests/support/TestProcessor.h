// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "TemporaryFolder.h"

#include "plugin_core/processor/PluginProcessor.h"
#include "plugin_core/updates/UpdateEnvironment.h"

namespace mk::orlo::test
{

/** A product of the framework other than the plug-in: five parameters, an empty editor, presets in a folder of
    its own. */
class TestProcessor final : public pluginCore::PluginProcessor
{
public:
    TestProcessor();

    [[nodiscard]] juce::String getReleaseNotesUrl() const override { return releaseNotesUrl; }
    [[nodiscard]] juce::String getProductUrl() const override { return "http://127.0.0.1/product/test"; }
    void prepareInternal (int, double) override {}
    void onResetRequested() override { ++numResets; }
    void processInternal (juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}
    [[nodiscard]] std::unique_ptr<pluginCore::ProcessorEditor> createEditorInternal() override;

    using AudioProcessor::getParameter;
    [[nodiscard]] juce::RangedAudioParameter& getParameter (const juce::String& id);

    /** The value as it is saved. */
    [[nodiscard]] float getValue (const juce::String& id);

    /** Sets a parameter as a user does. */
    void setValue (const juce::String& id, float value);

    /** Processes one block of audio. */
    void runBlock();

    /** A state document with the given values, as getStateXml() writes it for a session. */
    [[nodiscard]] std::unique_ptr<juce::XmlElement>
        makeSession (std::initializer_list<std::pair<const char*, const char*>> values) const;

    /** A file of the user's presets with the given values. */
    [[nodiscard]] juce::File writePreset (const juce::String& name,
                                          std::initializer_list<std::pair<const char*, const char*>> values);

    /** Gives the document to the processor as a host does. */
    void restore (const juce::XmlElement& session);

    int numResets = 0;
    double editorAspectRatio = 0.0; /**< of the next editor */

    juce::String releaseNotesUrl { "http://127.0.0.1/releaseNotes/test" };

    /** Of the next editor. */
    pluginCore::UpdateEnvironment updateEnvironment = pluginCore::UpdateEnvironment::makeReal();

    static constexpr auto tag = "TestPlugin1";

private:
    explicit TestProcessor (std::unique_ptr<TemporaryFolder> folder);

    const std::unique_ptr<TemporaryFolder> presetsBase;
};

} // namespace mk::orlo::test
