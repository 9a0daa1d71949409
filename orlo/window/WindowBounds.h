// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The window's bounds in the form that the session and the settings store: "0 0 W H". Any thread. */
[[nodiscard]] inline juce::String formatWindowBounds (int width, int height)
{
    return "0 0 " + juce::String (width) + " " + juce::String (height);
}

/** The width and height in such a text. A missing or invalid number reads as 0. Any thread. */
[[nodiscard]] inline juce::Point<int> parseWindowSize (const juce::String& bounds)
{
    juce::StringArray numbers;
    numbers.addTokens (bounds.trimStart(), ",; \t\r\n", "");
    return { numbers[2].getIntValue(), numbers[3].getIntValue() };
}

} // namespace mk::orlo
