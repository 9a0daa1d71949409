// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

namespace mk::orlo::render
{

/** Reads a finite decimal number, whatever the locale, with or without the unit behind it ("-90", "-90dB",
    "-90 db" for the unit "dB"). Nothing if there is anything else in the text. */
[[nodiscard]] std::optional<double> parseNumber (const juce::String& text, const juce::String& unit = {});

/** Reads a whole number within lowest .. highest. */
[[nodiscard]] std::optional<int> parseWholeNumber (const juce::String& text, int lowest, int highest);

} // namespace mk::orlo::render
