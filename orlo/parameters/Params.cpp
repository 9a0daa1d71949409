// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Params.h"

#include "ColourMapNames.h"

#include "plugin_core/state/FloatParameterAttributes.h"
#include "plugin_core/state/InternalParameter.h"

#include <array>

namespace mk::orlo::Params
{
namespace
{
constexpr std::array windowSizes { 256, 512, 1024, 2048, 4096, 8192 };

// Empty choices are reserved at the end, so that new choices do not change the normalised values of existing ones.
constexpr int numWindowSizeChoices = 10;
constexpr int numFreqScaleChoices = 6;
constexpr int numColourMapChoices = 128;

// log10 (2), which puts a tenth of the frequency range in the middle of the control.
constexpr float frequencySkew = 0.30103f;

[[nodiscard]] juce::StringArray paddedTo (int size, juce::StringArray choices)
{
    while (choices.size() < size)
        choices.add ({});

    return choices;
}

[[nodiscard]] juce::StringArray getWindowSizeChoices()
{
    juce::StringArray choices;

    for (const auto size : windowSizes)
        choices.add (juce::String (size));

    return paddedTo (numWindowSizeChoices, choices);
}

[[nodiscard]] juce::StringArray getColourMapChoices()
{
    juce::StringArray choices;

    for (const auto* name : colourMapNames)
        choices.add (name);

    return paddedTo (numColourMapChoices, choices);
}

[[nodiscard]] auto
    makeChoice (const char* name, int hint, const char* text, const juce::StringArray& choices, int defaultIndex)
{
    return std::make_unique<juce::AudioParameterChoice> (juce::ParameterID { name, hint }, text, choices, defaultIndex);
}

// JUCE's own texts for a switch depend on the user's language, both written and read; the texts that a host
// shows and automates must not.
[[nodiscard]] juce::String writeSwitch (bool isOn, int) { return isOn ? "On" : "Off"; }

[[nodiscard]] bool parseSwitch (const juce::String& text)
{
    for (const auto* const word : { "on", "yes", "true" })
        if (text.trim().equalsIgnoreCase (word))
            return true;

    return text.getIntValue() != 0;
}

[[nodiscard]] auto makeBool (const char* name, int hint, const char* text)
{
    return std::make_unique<juce::AudioParameterBool> (juce::ParameterID { name, hint },
                                                       text,
                                                       false,
                                                       juce::AudioParameterBoolAttributes()
                                                           .withStringFromValueFunction (writeSwitch)
                                                           .withValueFromStringFunction (parseSwitch));
}

[[nodiscard]] auto makeFloat (const char* name,
                              int hint,
                              const char* text,
                              const juce::NormalisableRange<float>& range,
                              float defaultValue,
                              const juce::AudioParameterFloatAttributes& attributes = {})
{
    return std::make_unique<juce::AudioParameterFloat> (
        juce::ParameterID { name, hint }, text, range, defaultValue, attributes);
}
} // namespace

std::vector<std::unique_ptr<juce::RangedAudioParameter>> createParameters()
{
    const juce::NormalisableRange<float> gains (-140.0f, 0.0f, 0.0f);
    const juce::NormalisableRange<float> frequencies (0.0f, 100.0f, 0.0f, frequencySkew);
    const juce::NormalisableRange<float> percent (0.0f, 100.0f, 0.0f);
    const auto speedAttributes = pluginCore::getFloatParameterAttributesWithNDecimals (0).withLabel (" % ");

    std::vector<std::unique_ptr<juce::RangedAudioParameter>> all;
    all.push_back (makeChoice (id::mode, 1, "Mode", { "Classic", "Enhanced" }, 1));
    all.push_back (makeChoice (id::fftSize, 1, "FFT Size", getWindowSizeChoices(), 3));
    all.push_back (makeChoice (id::hiDPI, 1, "HiDPI", { "Normal", "2x" }, 0));
    all.push_back (makeBool (id::freeze, 1, "Freeze"));
    all.push_back (makeChoice (id::drawMode, 1, "Draw Mode", { "Static", "Scroll" }, 0));
    all.push_back (makeFloat (id::floor, 1, "Floor Gain", gains, -100.0f, getGainParameterAttributes()));
    all.push_back (makeFloat (id::ceiling, 2, "Ceiling Gain", gains, 0.0f, getGainParameterAttributes()));
    all.push_back (makeFloat (id::minFreq, 2, "Min Freq", frequencies, 0.0f));
    all.push_back (makeFloat (id::maxFreq, 2, "Max Freq", frequencies, 100.0f));
    all.push_back (makeFloat (id::speed, 2, "Speed", percent, 40.0f, speedAttributes));
    all.push_back (makeBool (id::ruler, 2, "Show Ruler"));
    all.push_back (makeChoice (
        id::freqScale, 1, "Freq Scale", paddedTo (numFreqScaleChoices, { "Linear", "Log", "Mel", "Bark", "ERB" }), 1));
    all.push_back (makeBool (id::keyboard, 3, "Show Piano"));
    all.push_back (makeBool (id::autoFreeze, 3, "Auto Freeze"));
    all.push_back (pluginCore::createInternalParam (3));
    all.push_back (makeChoice (id::colourMap, 1, "Colour Map", getColourMapChoices(), 0));
    return all;
}

juce::AudioProcessorValueTreeState::ParameterLayout createLayout()
{
    auto parameters = createParameters();
    return { parameters.begin(), parameters.end() };
}

juce::AudioParameterFloatAttributes getGainParameterAttributes()
{
    return pluginCore::getFloatParameterAttributesWithNDecimals (0).withLabel (" dB").withValueFromStringFunction (
        [] (const juce::String& text)
        {
            const auto value = text.getFloatValue();
            return value > 0.0f ? -value : value;
        });
}

int getWindowSize (float fftSizeValue) noexcept
{
    return windowSizes[size_t (juce::jlimit (0, int (windowSizes.size()) - 1, juce::roundToInt (fftSizeValue)))];
}

} // namespace mk::orlo::Params
