// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <vector>

namespace mk::orlo::test
{

/** What the component paints, with a margin around it that it should leave alone (transparent). */
[[nodiscard]] inline juce::Image paintUnclipped (juce::Component& component, int margin, float scale = 1.0f)
{
    const auto width = juce::roundToInt (float (component.getWidth() + 2 * margin) * scale);
    const auto height = juce::roundToInt (float (component.getHeight() + 2 * margin) * scale);
    juce::Image image { juce::Image::ARGB, width, height, true, juce::SoftwareImageType() };
    juce::Graphics g { image };
    g.addTransform (juce::AffineTransform::translation (float (margin), float (margin)).scaled (scale));
    component.paint (g);
    return image;
}

/** What the component looks like inside its bounds. */
[[nodiscard]] inline juce::Image paintComponent (juce::Component& component, float scale = 1.0f)
{
    return paintUnclipped (component, 0, scale);
}

/** The runs of neighbouring rows, within the columns, that hold a colour other than the background's. */
[[nodiscard]] inline std::vector<juce::Range<int>>
    findBandsOfRows (const juce::Image& image, juce::Colour ground, juce::Range<int> columns)
{
    std::vector<juce::Range<int>> bands;

    for (int y = 0; y < image.getHeight(); ++y)
    {
        auto isInk = false;

        for (auto x = columns.getStart(); x < columns.getEnd() && ! isInk; ++x)
            isInk = image.getPixelAt (x, y) != ground;

        if (! isInk)
            continue;

        if (bands.empty() || bands.back().getEnd() != y)
            bands.push_back ({ y, y + 1 });
        else
            bands.back().setEnd (y + 1);
    }

    return bands;
}

} // namespace mk::orlo::test
