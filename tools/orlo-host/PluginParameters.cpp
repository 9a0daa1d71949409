// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginParameters.h"

#include "HostError.h"

#include "plugin_core/text/NumberText.h"

namespace mk::orlo::host
{
namespace
{
constexpr int longestText = 128;

[[nodiscard]] juce::String textOf (const juce::AudioProcessorParameter& parameter, float value)
{
    return parameter.getText (value, longestText).trim();
}

[[nodiscard]] bool sameText (const juce::String& a, const juce::String& b) { return a.equalsIgnoreCase (b); }

/** Whether a text is one of the words that a switch accepts besides the two that it shows. */
[[nodiscard]] bool isWordForSwitch (const juce::AudioProcessorParameter& parameter, const juce::String& text)
{
    static const juce::StringArray words { "on", "off", "yes", "no", "true", "false", "1", "0" };
    return sameText (textOf (parameter, 1.0f), "on") && words.contains (text, true);
}

/** Whether a number equals the one that the parameter shows, apart from rounding and the sign, which a
    parameter may turn. */
[[nodiscard]] bool isShownAs (double number, const juce::String& shown)
{
    constexpr double rounding = 0.51;
    return std::abs (std::abs (shown.getDoubleValue()) - std::abs (number)) <= rounding;
}

/** Compares numeric VST3 ids, which JUCE's plug-in wrapper makes from the parameter's own id by this rule. */
[[nodiscard]] bool hasId (const juce::AudioProcessorParameter& parameter, const juce::String& id)
{
    const auto* const hosted = dynamic_cast<const juce::HostedAudioProcessorParameter*> (&parameter);
    return hosted != nullptr
           && hosted->getParameterID() == juce::String (juce::VST3ClientExtensions::convertJuceParameterId (id));
}
} // namespace

juce::AudioProcessorParameter* findParameter (const juce::AudioPluginInstance& plugin, const juce::String& id)
{
    for (auto* const parameter : plugin.getParameters())
        if (hasId (*parameter, id))
            return parameter;

    for (auto* const parameter : plugin.getParameters())
        if (sameText (parameter->getName (longestText), id))
            return parameter;

    return nullptr;
}

float valueForText (const juce::AudioProcessorParameter& parameter, const juce::String& text)
{
    const auto value = juce::jlimit (0.0f, 1.0f, parameter.getValueForText (text));
    const auto shown = textOf (parameter, value);
    const auto fail = [&] (const juce::String& what)
    { throw HostError ("'" + parameter.getName (longestText) + "' " + what + " '" + text + "'"); };

    if (text.isEmpty())
        fail ("has no value");

    if (sameText (shown, text) || isWordForSwitch (parameter, text))
        return value;

    const auto number = pluginCore::parseQuantity (text, parameter.getLabel().trim());

    if (parameter.isDiscrete() || ! number)
        fail ("has no value");

    const auto atAnEnd = value <= 0.0f || value >= 1.0f;

    if (atAnEnd && ! isShownAs (*number, shown))
        fail ("goes from " + textOf (parameter, 0.0f) + " to " + textOf (parameter, 1.0f) + ", not to");

    return value;
}

void setParameter (juce::AudioPluginInstance& plugin, const ParameterSetting& setting)
{
    auto* const parameter = findParameter (plugin, setting.id);

    if (parameter == nullptr)
        throw HostError (plugin.getName() + " has no parameter '" + setting.id + "'");

    parameter->setValueNotifyingHost (valueForText (*parameter, setting.text));
}

} // namespace mk::orlo::host
