// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

namespace mk::pluginCore
{

/** The number that a text of a stored document stands for: an optional sign, digits with an optional
    point, an optional exponent, blanks around it. Nothing if the text is anything else, "nan" and "inf"
    included. Very large numbers come out as infinity. Any thread; any text. */
[[nodiscard]] std::optional<double> parseNumber (const juce::String& text);

/** The whole number that a text begins with: blanks, an optional sign, digits, and then anything, as in
    "900px". Nothing if no digit comes there. Numbers outside the range of int come out as the nearest end of
    it. Any thread; any text. */
[[nodiscard]] std::optional<int> parseInteger (const juce::String& text);

} // namespace mk::pluginCore
