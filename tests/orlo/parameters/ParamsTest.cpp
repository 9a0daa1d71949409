// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/parameters/Params.h"

#include "orlo/parameters/ColourMapNames.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

struct Expected
{
    const char *id, *name;
    int hint;
    float defaultValue;
    int numChoices; // 0 for a parameter without choices
};

// Saved sessions and automation refer to these, so entries must never change; new ones may only be added.
constexpr Expected contract[] {
    { "mode", "Mode", 1, 1.0f, 2 },
    { "fftSize", "FFT Size", 1, 3.0f, 10 },
    { "hiDPI", "HiDPI", 1, 0.0f, 2 },
    { "freeze", "Freeze", 1, 0.0f, 0 },
    { "drawMode", "Draw Mode", 1, 0.0f, 2 },
    { "floor", "Floor Gain", 1, -100.0f, 0 },
    { "ceiling", "Ceiling Gain", 2, 0.0f, 0 },
    { "minFreq", "Min Freq", 2, 0.0f, 0 },
    { "maxFreq", "Max Freq", 2, 100.0f, 0 },
    { "speed", "Speed", 2, 40.0f, 0 },
    { "ruler", "Show Ruler", 2, 0.0f, 0 },
    { "freqScale", "Freq Scale", 1, 1.0f, 6 },
    { "keyboard", "Show Piano", 3, 0.0f, 0 },
    { "autoFreeze", "Auto Freeze", 3, 0.0f, 0 },
    { "internal", "internal", 3, 0.0f, 0 },
    { "colourMap", "Colour Map", 1, 0.0f, 128 },
};

class ParamsTest : public testing::Test
{
protected:
    [[nodiscard]] juce::RangedAudioParameter& find (const char* id)
    {
        return *processor.getParameterState().getParameter (id);
    }

    /** The value of a text that the user types. */
    [[nodiscard]] float valueOf (const char* id, const char* text)
    {
        return find (id).convertFrom0to1 (find (id).getValueForText (text));
    }

    [[nodiscard]] juce::String textOf (const char* id, float value)
    {
        return find (id).getText (find (id).convertTo0to1 (value), 0);
    }

    AudioPluginAudioProcessor processor;
};

TEST_F (ParamsTest, AreThoseThatSessionsReferToInOrder)
{
    const auto& parameters = processor.getParameters();
    ASSERT_EQ (size_t (parameters.size()), std::size (contract));

    for (int i = 0; i < parameters.size(); ++i)
    {
        const auto& expected = contract[i];
        const auto& parameter = dynamic_cast<juce::RangedAudioParameter&> (*parameters[i]);
        EXPECT_EQ (parameter.getParameterID(), expected.id);
        EXPECT_EQ (parameter.getName (100), expected.name);
        EXPECT_EQ (parameter.getVersionHint(), expected.hint);
        EXPECT_FLOAT_EQ (parameter.convertFrom0to1 (parameter.getDefaultValue()), expected.defaultValue) << expected.id;

        const auto* const choice = dynamic_cast<const juce::AudioParameterChoice*> (&parameter);
        EXPECT_EQ (choice != nullptr ? choice->choices.size() : 0, expected.numChoices) << expected.id;
    }
}

TEST_F (ParamsTest, ChoicesAreInOrderWithReservedPlacesBehind)
{
    const auto choicesOf = [this] (const char* id)
    { return dynamic_cast<juce::AudioParameterChoice&> (find (id)).choices; };

    EXPECT_EQ (choicesOf ("mode").joinIntoString (","), "Classic,Enhanced");
    EXPECT_EQ (choicesOf ("fftSize").joinIntoString (","), "256,512,1024,2048,4096,8192,,,,");
    EXPECT_EQ (choicesOf ("hiDPI").joinIntoString (","), "Normal,2x");
    EXPECT_EQ (choicesOf ("drawMode").joinIntoString (","), "Static,Scroll");
    EXPECT_EQ (choicesOf ("freqScale").joinIntoString (","), "Linear,Log,Mel,Bark,ERB,");

    const auto maps = choicesOf ("colourMap");
    EXPECT_EQ (maps[0], "gray");
    EXPECT_EQ (maps[9], "turbo");
    EXPECT_EQ (maps[45], "voltage");

    for (int i = 0; i < 46; ++i)
        EXPECT_EQ (maps[i], colourMapNames[size_t (i)]);

    for (int i = 46; i < 128; ++i)
        EXPECT_TRUE (maps[i].isEmpty());
}

TEST_F (ParamsTest, GainsAreTypedWithOrWithoutTheirSign)
{
    EXPECT_FLOAT_EQ (valueOf ("ceiling", "6"), -6.0f);
    EXPECT_FLOAT_EQ (valueOf ("ceiling", "-6"), -6.0f);
    EXPECT_FLOAT_EQ (valueOf ("floor", "40"), -40.0f);
    EXPECT_FLOAT_EQ (valueOf ("floor", "-90 dB"), -90.0f);
    EXPECT_FLOAT_EQ (valueOf ("floor", "0"), 0.0f);
    EXPECT_EQ (textOf ("floor", -100.0f), "-100");
    EXPECT_EQ (find ("floor").getLabel(), " dB");
    EXPECT_EQ (find ("ceiling").getLabel(), " dB");
}

TEST_F (ParamsTest, HalvesRoundToTheEvenWholeNumber)
{
    EXPECT_EQ (textOf ("floor", -2.5f), "-2");
    EXPECT_EQ (textOf ("floor", -3.5f), "-4");
    EXPECT_EQ (textOf ("floor", -3.6f), "-4");
}

TEST_F (ParamsTest, SpeedIsAWholePercentage)
{
    EXPECT_EQ (textOf ("speed", 40.0f), "40");
    EXPECT_EQ (find ("speed").getLabel(), " % ");
}

TEST_F (ParamsTest, GainsAndSpeedAreLinearAndFrequenciesAreSkewed)
{
    EXPECT_FLOAT_EQ (find ("floor").convertFrom0to1 (0.5f), -70.0f);
    EXPECT_FLOAT_EQ (find ("speed").convertFrom0to1 (0.25f), 25.0f);
    EXPECT_NEAR (find ("minFreq").convertFrom0to1 (0.5f), 10.0f, 1.0e-3f);
    EXPECT_NEAR (find ("maxFreq").convertFrom0to1 (0.5f), 10.0f, 1.0e-3f);
    EXPECT_FLOAT_EQ (find ("maxFreq").convertFrom0to1 (1.0f), 100.0f);
}

TEST_F (ParamsTest, SwitchesAcceptTheSameWordsInEveryLanguage)
{
    juce::LocalisedStrings::setCurrentMappings (new juce::LocalisedStrings ("\"Yes\" = \"Oui\"", true));

    for (const auto* const word : { "on", "Yes", "TRUE", " 1 " })
        EXPECT_EQ (valueOf ("freeze", word), 1.0f) << word;

    for (const auto* const word : { "off", "no", "0", "" })
        EXPECT_EQ (valueOf ("freeze", word), 0.0f) << word;

    juce::LocalisedStrings::setCurrentMappings (nullptr);
}

TEST_F (ParamsTest, TheInternalParameterShowsADashAndCannotBeAutomated)
{
    for (const auto value : { 0.0f, 0.01f, 1.0f })
        EXPECT_EQ (textOf ("internal", value), "-");

    EXPECT_FALSE (find ("internal").isAutomatable());
    EXPECT_TRUE (find ("mode").isAutomatable());
}

TEST (WindowSize, ReservedChoicesCountAsTheLargestWindow)
{
    EXPECT_EQ (Params::getWindowSize (0.0f), 256);
    EXPECT_EQ (Params::getWindowSize (3.0f), 2048);
    EXPECT_EQ (Params::getWindowSize (5.0f), 8192);
    EXPECT_EQ (Params::getWindowSize (6.0f), 8192);
    EXPECT_EQ (Params::getWindowSize (9.0f), 8192);
    EXPECT_EQ (Params::getWindowSize (-1.0f), 256);
}

} // namespace
} // namespace mk::orlo::test
