// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

/** Readers of numbers in text that may be anything at all: a document, a reply, a command line. None looks at
    the locale. Any thread. */
namespace mk::pluginCore
{

/** The number that a text of a stored document stands for: an optional sign, digits with an optional
    point, an optional exponent, blanks around it. Nothing if the text is anything else, "nan" and "inf"
    included. Very large numbers come out as infinity. */
[[nodiscard]] std::optional<double> parseNumber (const juce::String& text);

/** The finite number that a user has typed, as parseNumber() reads it, with or without the unit behind it:
    "-90", "-90dB" and "-90 db" for the unit "dB". Nothing if there is anything else in the text. */
[[nodiscard]] std::optional<double> parseQuantity (const juce::String& text, const juce::String& unit = {});

/** The whole number within lowest .. highest that a user has typed. Nothing if there is anything else in the
    text. */
[[nodiscard]] std::optional<int> parseWholeNumber (const juce::String& text, int lowest, int highest);

/** The whole number that a text begins with: blanks, an optional sign, digits, and then anything, as in
    "900px". Nothing if no digit comes there. Numbers outside the range of int come out as the nearest end of
    it. */
[[nodiscard]] std::optional<int> parseInteger (const juce::String& text);

} // namespace mk::pluginCore
