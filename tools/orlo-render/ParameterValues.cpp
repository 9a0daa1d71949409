// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ParameterValues.h"

#include "RenderError.h"
#include "orlo/parameters/Params.h"
#include "plugin_core/text/NumberText.h"

namespace mk::orlo::render
{
namespace
{
[[noreturn]] void reject (const juce::String& id, const juce::String& text, const juce::String& why)
{
    throw RenderError ("--" + id + ": '" + text + "' " + why, RenderError::usage);
}

[[nodiscard]] bool isFrequencyLimit (const juce::String& id)
{
    return id == Params::id::minFreq || id == Params::id::maxFreq;
}

/** The names of the choices, without the reserved ones. */
[[nodiscard]] juce::StringArray getNames (const juce::AudioParameterChoice& parameter)
{
    auto names = parameter.choices;
    names.removeEmptyStrings();
    return names;
}

[[nodiscard]] float
    parseChoice (const juce::RangedAudioParameter& parameter, const juce::StringArray& names, const juce::String& text)
{
    const auto index = names.indexOf (text, true);

    if (index < 0)
        reject (parameter.paramID, text, "is not one of " + names.joinIntoString (", "));

    return parameter.getValueForText (names[index]);
}

[[nodiscard]] float parseBool (const juce::RangedAudioParameter& parameter, const juce::String& text)
{
    const juce::StringArray known { "on", "off", "yes", "no", "true", "false", "1", "0" };

    if (! known.contains (text, true))
        reject (parameter.paramID, text, "is neither on nor off");

    return parameter.getValueForText (text);
}

[[nodiscard]] float parseFloat (const juce::RangedAudioParameter& parameter, const juce::String& text)
{
    const auto unit = isFrequencyLimit (parameter.paramID) ? juce::String ("%") : parameter.getLabel().trim();
    const auto number = pluginCore::parseQuantity (text, unit);

    if (! number)
        reject (parameter.paramID, text, "is not a number");

    const auto normalised = parameter.getValueForText (juce::String (*number, 9));

    // A parameter clamps a number out of its range, and the gains read a positive number as a negative one.
    // So a number is in range if it comes back with the same magnitude.
    const auto& range = parameter.getNormalisableRange();
    const auto difference = std::abs (double (parameter.convertFrom0to1 (normalised))) - std::abs (*number);

    if (std::abs (difference) > 1.0e-4 * double (range.end - range.start))
        reject (
            parameter.paramID, text, "lies outside " + juce::String (range.start) + " to " + juce::String (range.end));

    return normalised;
}

[[nodiscard]] float parse (const juce::RangedAudioParameter& parameter, const juce::String& text)
{
    // The text that the parameter shows is always accepted, even if it is not a number.
    if (text == parameter.getCurrentValueAsText())
        return parameter.getValue();

    if (const auto* const choice = dynamic_cast<const juce::AudioParameterChoice*> (&parameter))
        return parseChoice (*choice, getNames (*choice), text);

    if (dynamic_cast<const juce::AudioParameterBool*> (&parameter) != nullptr)
        return parseBool (parameter, text);

    return parseFloat (parameter, text);
}

/** The values that a parameter accepts, for the help. */
[[nodiscard]] juce::String describeValues (const juce::RangedAudioParameter& parameter)
{
    if (const auto* const choice = dynamic_cast<const juce::AudioParameterChoice*> (&parameter))
        return getNames (*choice).joinIntoString (", ");

    if (dynamic_cast<const juce::AudioParameterBool*> (&parameter) != nullptr)
        return "On, Off";

    const auto& range = parameter.getNormalisableRange();
    const auto ends = juce::String (range.start) + " to " + juce::String (range.end);

    return isFrequencyLimit (parameter.paramID) ? ends + " % of half the sample rate, or hertz as in 200Hz"
                                                : (ends + " " + parameter.getLabel().trim()).trimEnd();
}
} // namespace

ParameterValues::ParameterValues() : parameters (Params::createParameters()) {}

juce::RangedAudioParameter* ParameterValues::find (const juce::String& id) const
{
    for (const auto& parameter : parameters)
        if (parameter->paramID == id)
            return parameter.get();

    return nullptr;
}

void ParameterValues::set (const juce::String& id, const juce::String& text)
{
    auto& parameter = *find (id);
    hertz.erase (id);

    if (isFrequencyLimit (id) && text.endsWithIgnoreCase ("Hz"))
    {
        const auto number = pluginCore::parseQuantity (text, "Hz");

        if (! number || *number < 0.0)
            reject (id, text, "is not a frequency");

        hertz[id] = *number;
        return;
    }

    parameter.setValue (parse (parameter, text));
}

float ParameterValues::get (const juce::String& id) const
{
    const auto& parameter = *find (id);
    return parameter.convertFrom0to1 (parameter.getValue());
}

float ParameterValues::getFrequencyFraction (const juce::String& id, double sampleRate) const
{
    const auto found = hertz.find (id);

    if (found == hertz.end())
        return get (id) * 0.01f;

    const auto nyquist = sampleRate * 0.5;

    if (found->second > nyquist)
        throw RenderError ("--" + id + ": " + juce::String (found->second) + " Hz lies above half the sample rate, "
                               + juce::String (nyquist) + " Hz",
                           RenderError::usage);

    return float (found->second / nyquist);
}

juce::StringArray ParameterValues::describe() const
{
    juce::StringArray lines;

    for (const auto& parameter : parameters)
    {
        const auto initial = parameter->getDefaultValue();
        const auto isNumber = dynamic_cast<const juce::AudioParameterFloat*> (parameter.get()) != nullptr;
        const auto text =
            isNumber ? juce::String (parameter->convertFrom0to1 (initial)) : parameter->getText (initial, 0);
        lines.add ("--" + parameter->paramID + ": " + describeValues (*parameter) + " (default " + text + ")");
    }

    return lines;
}

} // namespace mk::orlo::render
