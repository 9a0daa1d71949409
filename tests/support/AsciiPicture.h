// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <string>

namespace mk::orlo::test
{

/** A small picture as text, one line per row: '.' is opaque black, '#' opaque white, a digit 1 .. 9 another
    opaque colour by its brightness in tenths, '?' anything that is not opaque. */
[[nodiscard]] inline std::string toAscii (const juce::Image& image)
{
    std::string text;

    for (int y = 0; y < image.getHeight(); ++y)
    {
        for (int x = 0; x < image.getWidth(); ++x)
        {
            const auto pixel = image.getPixelAt (x, y);

            if (pixel.getAlpha() != 0xff)
                text += '?';
            else if (pixel == juce::Colours::black)
                text += '.';
            else if (pixel == juce::Colours::white)
                text += '#';
            else
                text += char ('0' + juce::jlimit (1, 9, juce::roundToInt (pixel.getBrightness() * 10.0f)));
        }

        text += '\n';
    }

    return text;
}

} // namespace mk::orlo::test
