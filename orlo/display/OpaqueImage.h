// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** Draws an image whose pixels are all opaque. The result is that of Graphics::drawImageTransformed().

    JUCE's software renderer blends pixel by pixel, unless neither image has an alpha channel; but the windows that it
    paints have one. If image and target have the same format and the pixels fall onto those of the target, this copies
    whole rows instead, in a third of the time. With other renderers it only calls JUCE. */
void drawOpaqueImage (juce::Graphics& g, const juce::Image& image, const juce::AffineTransform& transform);

} // namespace mk::orlo
