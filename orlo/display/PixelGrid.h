// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <cmath>

namespace mk::orlo
{

/** Moves edges onto the pixels of the screen, so that they are sharp even if a unit of a component is not
    a whole number of pixels. */
class PixelGrid
{
public:
    /** @param pixelsPerUnitToUse  more than 0; 1 leaves whole coordinates as they are */
    explicit PixelGrid (float pixelsPerUnitToUse) noexcept : pixelsPerUnit (pixelsPerUnitToUse) {}

    /** Moves each edge to the nearest pixel. */
    [[nodiscard]] juce::Rectangle<float> snap (juce::Rectangle<int> area) const noexcept
    {
        return juce::Rectangle<float>::leftTopRightBottom (
            snap (area.getX()), snap (area.getY()), snap (area.getRight()), snap (area.getBottom()));
    }

    /** For a horizontal line one unit thick: snaps its lower edge and makes all such lines equally thick. */
    [[nodiscard]] juce::Rectangle<float> snapLine (juce::Rectangle<int> line) const noexcept
    {
        const auto thickness = line.isEmpty() ? 0.0f : juce::jmax (1.0f, std::floor (pixelsPerUnit)) / pixelsPerUnit;
        return snap (line).withTop (snap (line.getBottom()) - thickness);
    }

private:
    [[nodiscard]] float snap (int edge) const noexcept
    {
        return std::floor (float (edge) * pixelsPerUnit + 0.5f) / pixelsPerUnit;
    }

    float pixelsPerUnit;
};

} // namespace mk::orlo
