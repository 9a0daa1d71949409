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

/** The same for a whole number; a fraction is cut off. Numbers outside the range of int come out as the
    nearest end of it. */
[[nodiscard]] std::optional<int> parseInteger (const juce::String& text);

} // namespace mk::pluginCore
