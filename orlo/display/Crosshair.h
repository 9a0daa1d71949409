// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The two lines that cross under the cursor, in the component's coordinates. */
struct Crosshair
{
    juce::Rectangle<float> horizontal, vertical;
};

/** Places the lines on whole pixels, or at double resolution on half pixels and half as thick. */
[[nodiscard]] inline Crosshair
    placeCrosshair (juce::Point<float> cursor, float width, float height, bool doubleResolution) noexcept
{
    const auto perPixel = doubleResolution ? 2.0f : 1.0f;
    const auto snap = [perPixel] (float v) { return float (juce::roundToInt (perPixel * v)) / perPixel; };
    const auto thickness = 1.0f / perPixel;

    return { { 0.0f, snap (cursor.y), width, thickness }, { snap (cursor.x), 0.0f, thickness, height } };
}

} // namespace mk::orlo
