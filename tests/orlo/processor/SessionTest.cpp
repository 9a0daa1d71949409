// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "plugin_core/state/StateBlob.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{

class ProductSessionTest : public testing::Test
{
protected:
    ~ProductSessionTest() override { settings.getSettings().removeAllProperties (nullptr); }

    [[nodiscard]] static float getValue (AudioPluginAudioProcessor& processor, const juce::String& id)
    {
        return processor.getParameterState().getRawParameterValue (id)->load();
    }

    const TemporaryHome home;
    const pluginCore::PluginGlobalSettings settings;
};

TEST_F (ProductSessionTest, HoldsAllSixteenParametersAndTheView)
{
    AudioPluginAudioProcessor processor;
    processor.applyInitialSettings();
    const auto xml = processor.getStateXml (true);

    EXPECT_TRUE (xml->hasTagName ("Orlo"));
    EXPECT_EQ (xml->getStringAttribute ("version"), "1.2.1");
    EXPECT_EQ (xml->getNumChildElements(), 2);
    EXPECT_EQ (xml->getChildElement (0)->getTagName(), "PARAMS");
    EXPECT_EQ (xml->getChildElement (0)->getNumChildElements(), 16);
    EXPECT_EQ (xml->getChildElement (1)->getTagName(), "Settings");
    EXPECT_NE (xml->getChildElement (1)->getChildByName ("UIVIEW"), nullptr);
}

TEST_F (ProductSessionTest, IsRestoredInAnotherInstance)
{
    AudioPluginAudioProcessor first;
    first.applyInitialSettings();
    auto position = 0.05f;

    for (auto* const parameter : first.getParameters())
        parameter->setValueNotifyingHost (position += 0.05f);

    first.getUIView().cleanViewMode = true;
    first.getUIView().normalBounds = "0 0 1200 800";
    juce::MemoryBlock blob;
    first.getStateInformation (blob);

    AudioPluginAudioProcessor second;
    second.applyInitialSettings();
    second.setStateInformation (blob.getData(), int (blob.getSize()));

    for (auto* const parameter : first.getParameters())
    {
        const auto id = dynamic_cast<juce::AudioProcessorParameterWithID&> (*parameter).getParameterID();
        EXPECT_NEAR (getValue (second, id), getValue (first, id), 1e-4f) << id;
    }

    EXPECT_TRUE (second.getUIView().cleanViewMode.get());
    EXPECT_EQ (second.getUIView().normalBounds.get(), "0 0 1200 800");
}

TEST_F (ProductSessionTest, BrokenParameterValuesNeverReachTheAnalysis)
{
    AudioPluginAudioProcessor processor;
    processor.prepareToPlay (48000.0, 64);
    processor.setAnalysisSuspended (false);
    juce::XmlElement session ("Orlo");
    auto* const parameters = session.createNewChildElement ("PARAMS");

    for (auto* const parameter : processor.getParameters())
    {
        auto* const child = parameters->createNewChildElement ("PARAM");
        child->setAttribute ("id", dynamic_cast<juce::AudioProcessorParameterWithID&> (*parameter).getParameterID());
        child->setAttribute ("value", parameter->getParameterIndex() % 2 == 0 ? "nan" : "1e40");
    }

    const auto blob = pluginCore::writeStateBlob (session);
    processor.setStateInformation (blob.getData(), int (blob.getSize()));

    for (auto* const parameter : processor.getParameters())
    {
        const auto& ranged = dynamic_cast<juce::RangedAudioParameter&> (*parameter);
        const auto value = getValue (processor, ranged.getParameterID());
        EXPECT_TRUE (std::isfinite (value));
        EXPECT_FLOAT_EQ (ranged.getNormalisableRange().snapToLegalValue (value), value);
    }

    juce::AudioBuffer<float> buffer (2, 64);
    juce::MidiBuffer midi;
    buffer.clear();
    processor.processBlock (buffer, midi);
}

//==============================================================================
TEST_F (ProductSessionTest, AFreshInstanceShowsTheUsersColourMap)
{
    settings.getSettings().setProperty (pluginCore::SettingsIds::preferedMap, 5, nullptr);
    AudioPluginAudioProcessor processor;
    processor.applyInitialSettings();
    EXPECT_FLOAT_EQ (getValue (processor, Params::id::colourMap), 4.0f);

    processor.getParameterState().copyState();
    EXPECT_FALSE (processor.getUndoManager().canUndo());
}

TEST_F (ProductSessionTest, TheFirstColourMapIsTheDefaultAndNothingIsDirty)
{
    AudioPluginAudioProcessor processor;
    processor.applyInitialSettings();
    EXPECT_FLOAT_EQ (getValue (processor, Params::id::colourMap), 0.0f);
    EXPECT_FALSE (processor.getPresetsManager().isDirty());
}

TEST_F (ProductSessionTest, AnyTextIsToleratedAsTheColourMap)
{
    const auto show = [this] (const juce::var& value)
    {
        settings.getSettings().setProperty (pluginCore::SettingsIds::preferedMap, value, nullptr);
        AudioPluginAudioProcessor processor;
        processor.applyInitialSettings();
        return getValue (processor, Params::id::colourMap);
    };

    EXPECT_FLOAT_EQ (show ("5"), 4.0f);
    EXPECT_FLOAT_EQ (show ("red"), 0.0f);
    EXPECT_FLOAT_EQ (show (-2147483647 - 1), 0.0f);
    EXPECT_FLOAT_EQ (show ("99999999999999"), 127.0f);
}

TEST_F (ProductSessionTest, TheUsersColourMapOverridesTheDefaultPresetsAndASessionOverridesBoth)
{
    AudioPluginAudioProcessor writer;
    writer.getParameterState().getParameter (Params::id::colourMap)->setValueNotifyingHost (1.0f);
    writer.getPresetsManager().savePresetFile (writer.getPresetsManager().getUserFolder().getChildFile ("a.mkpreset"),
                                               false);
    settings.getSettings().setProperty (
        pluginCore::SettingsIds::defaultPreset, "<defaultPreset root='USER' path='a.mkpreset'/>", nullptr);
    settings.getSettings().setProperty (pluginCore::SettingsIds::preferedMap, 5, nullptr);

    AudioPluginAudioProcessor processor;
    processor.applyInitialSettings();
    EXPECT_EQ (processor.getPresetsManager().getCurrentPresetFile().getFileName(), "a.mkpreset");
    EXPECT_FLOAT_EQ (getValue (processor, Params::id::colourMap), 4.0f);

    const auto blob = pluginCore::writeStateBlob (
        *juce::parseXML ("<Orlo><PARAMS><PARAM id='colourMap' value='9'/></PARAMS></Orlo>"));
    processor.setStateInformation (blob.getData(), int (blob.getSize()));
    EXPECT_FLOAT_EQ (getValue (processor, Params::id::colourMap), 9.0f);
}

} // namespace
} // namespace mk::orlo::test
