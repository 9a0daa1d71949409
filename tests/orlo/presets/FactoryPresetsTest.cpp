// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ColourTables.h"
#include "orlo/parameters/ColourMapNames.h"
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/SourceTree.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] juce::File getPresetFile (const juce::String& name)
{
    return getSourceFolder().getChildFile ("resources/presets").getChildFile (name + ".mkpreset");
}

[[nodiscard]] std::vector<std::string> getPresetNames()
{
    std::vector<std::string> names;

    for (const auto& file : getPresetFile ("Init").getParentDirectory().findChildFiles (juce::File::findFiles, false))
        names.push_back (file.getFileNameWithoutExtension().toStdString());

    return names;
}

class FactoryPreset : public testing::TestWithParam<std::string>
{
protected:
    [[nodiscard]] float getValue (const char* id)
    {
        return processor.getParameterState().getRawParameterValue (id)->load();
    }

    AudioPluginAudioProcessor processor;
    const juce::File file = getPresetFile (juce::String (GetParam()));
};

TEST_P (FactoryPreset, HoldsEveryParameterWithALegalValue)
{
    const auto xml = juce::parseXML (file);
    ASSERT_NE (xml, nullptr);
    EXPECT_TRUE (xml->hasTagName ("Orlo"));
    EXPECT_EQ (xml->getNumChildElements(), 1);
    const auto* const parameters = xml->getChildByName ("PARAMS");
    ASSERT_NE (parameters, nullptr);
    EXPECT_EQ (parameters->getNumChildElements(), processor.getParameters().size());

    for (auto* const each : processor.getParameters())
    {
        const auto& parameter = dynamic_cast<const juce::RangedAudioParameter&> (*each);
        const auto id = parameter.getParameterID();
        const auto* const entry = parameters->getChildByAttribute ("id", id);
        ASSERT_NE (entry, nullptr) << id;
        const auto value = float (entry->getDoubleAttribute ("value", 1e9));
        EXPECT_FLOAT_EQ (parameter.getNormalisableRange().snapToLegalValue (value), value) << id;
    }
}

TEST_P (FactoryPreset, LoadsTheValuesOfItsFile)
{
    auto& presets = processor.getPresetsManager();
    EXPECT_TRUE (presets.isPresetFile (file));
    ASSERT_TRUE (presets.loadPresetFile (file, nullptr));
    EXPECT_EQ (presets.getCurrentPresetFile(), file);

    const auto xml = juce::parseXML (file);

    for (const auto* entry : xml->getChildByName ("PARAMS")->getChildIterator())
    {
        const auto id = entry->getStringAttribute ("id");
        EXPECT_NEAR (getValue (id.toRawUTF8()), entry->getDoubleAttribute ("value"), 1e-4) << id;
    }
}

TEST_P (FactoryPreset, ShowsARunningPictureThatIsNotUpsideDown)
{
    ASSERT_TRUE (processor.getPresetsManager().loadPresetFile (file, nullptr));
    EXPECT_LT (getValue (Params::id::floor), getValue (Params::id::ceiling));
    EXPECT_LT (getValue (Params::id::minFreq), getValue (Params::id::maxFreq));
    EXPECT_FLOAT_EQ (getValue (Params::id::freeze), 0.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::autoFreeze), 0.0f);

    // No choice is a reserved one.
    EXPECT_LE (getValue (Params::id::fftSize), 5.0f);
    EXPECT_LE (getValue (Params::id::freqScale), 4.0f);
    EXPECT_LT (getValue (Params::id::colourMap), float (colourMapNames.size()));
}

INSTANTIATE_TEST_SUITE_P (
    EachFile,
    FactoryPreset,
    testing::ValuesIn (getPresetNames()),
    [] (const auto& instance)
    {
        const juce::String name (instance.param);
        return name.retainCharacters ("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz").toStdString();
    });

TEST (FactoryPresets, ShowWhatThePlugInCanDo)
{
    for (const auto* name : { "Init",
                              "Speech",
                              "Mixing",
                              "Mastering",
                              "Bass",
                              "Percussion",
                              "Music with Piano",
                              "Hi-Res Transients",
                              "Overview" })
        EXPECT_TRUE (getPresetFile (name).existsAsFile()) << name;
}

TEST (FactoryPresets, InitIsWhatAFreshInstanceWouldSave)
{
    AudioPluginAudioProcessor processor;
    auto xml = processor.getStateXml (false);
    xml->setAttribute ("version", "1.2.1");

    juce::MemoryBlock bytes;
    ASSERT_TRUE (getPresetFile ("Init").loadFileAsData (bytes));
    EXPECT_EQ (bytes.toString(), xml->toString());
}

} // namespace
} // namespace mk::orlo::test
