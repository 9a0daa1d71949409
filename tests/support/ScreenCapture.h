// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo::test
{

/** The pixels that are on the screen now; a null image without a screen. Linux only. */
[[nodiscard]] juce::Image captureScreen (juce::Rectangle<int> area);

} // namespace mk::orlo::test
