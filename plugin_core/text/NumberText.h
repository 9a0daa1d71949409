// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

/** Parsers for numbers in untrusted text, such as a document, a server's reply or a command line. They ignore
    the locale. Any thread. */
namespace mk::pluginCore
{

/** The number that a text from a stored document represents: an optional sign, digits with an optional
    decimal point, an optional exponent, blanks around it. Nothing for any other text, including "nan" and
    "inf". Very large numbers become infinity. */
[[nodiscard]] std::optional<double> parseNumber (const juce::String& text);

/** The finite number that a user has typed, as parseNumber() reads it, with or without the unit after it:
    "-90", "-90dB" and "-90 db" for the unit "dB". Nothing if the text contains anything else. */
[[nodiscard]] std::optional<double> parseQuantity (const juce::String& text, const juce::String& unit = {});

/** The integer within lowest .. highest that a user has typed. Nothing if it is out of range or the text
    contains anything else. */
[[nodiscard]] std::optional<int> parseWholeNumber (const juce::String& text, int lowest, int highest);

/** The integer at the start of a text: blanks, an optional sign, digits, and then anything, as in
    "900px". Nothing if there is no digit in that place. Numbers outside the range of int are clamped
    to it. */
[[nodiscard]] std::optional<int> parseInteger (const juce::String& text);

} // namespace mk::pluginCore
