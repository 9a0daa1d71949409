// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TuningSettings.h"

#include "plugin_core/text/NumberText.h"

namespace mk::orlo::data
{
namespace
{
using pluginCore::SettingsIds::concertPitch;
using pluginCore::SettingsIds::middleC;

constexpr auto hostsMiddleC = "host";

/** Nothing for a text that is not one of those that are stored. */
[[nodiscard]] std::optional<std::optional<int>> parseMiddleC (const juce::String& text)
{
    if (text == hostsMiddleC)
        return std::optional<int>();

    if (const auto octave =
            pluginCore::parseWholeNumber (text, TuningSettings::lowestMiddleC, TuningSettings::highestMiddleC))
        return octave;

    return std::nullopt;
}
} // namespace

std::optional<double> parseConcertPitch (const juce::String& text)
{
    const auto hz = pluginCore::parseQuantity (text, "Hz");

    // Written so that a NaN is out of range.
    return hz && *hz >= TuningSettings::lowestPitch && *hz <= TuningSettings::highestPitch ? hz : std::nullopt;
}

juce::String formatConcertPitch (double hz)
{
    return juce::String (hz, 2).trimCharactersAtEnd ("0").trimCharactersAtEnd (".");
}

double TuningSettings::getConcertPitch() const
{
    if (const auto ofSession = parseConcertPitch (view.concertPitch.get()))
        return *ofSession;

    return parseConcertPitch (userSettings.getSettings()[concertPitch].toString()).value_or (defaultPitch);
}

std::optional<int> TuningSettings::getMiddleC() const
{
    if (const auto ofSession = parseMiddleC (view.middleC.get()))
        return *ofSession;

    return parseMiddleC (userSettings.getSettings()[middleC].toString()).value_or (std::nullopt);
}

void TuningSettings::setConcertPitch (double hz)
{
    const auto text = formatConcertPitch (hz);
    view.concertPitch = text;
    userSettings.getSettings().setProperty (concertPitch, text, nullptr);
}

void TuningSettings::setMiddleC (std::optional<int> octave)
{
    const auto text = octave ? juce::String (*octave) : juce::String (hostsMiddleC);
    view.middleC = text;
    userSettings.getSettings().setProperty (middleC, text, nullptr);
}

void TuningSettings::takeUsersChoice()
{
    const auto settings = userSettings.getSettings();

    if (settings.hasProperty (concertPitch))
        view.concertPitch = settings[concertPitch].toString();

    if (settings.hasProperty (middleC))
        view.middleC = settings[middleC].toString();
}

} // namespace mk::orlo::data
