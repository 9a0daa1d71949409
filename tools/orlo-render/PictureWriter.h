// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LevelGrid.h"
#include "orlo/analysis/ColourMap.h"

namespace mk::orlo::render
{

/** Colours the levels as the live picture does. Returns a software image without alpha.
    @param inverted  the floor is above the ceiling: silence takes the map's last colour, not black */
[[nodiscard]] juce::Image paintPicture (const LevelGrid& levels, const ColourMap& map, bool inverted);

/** Writes a PNG; the same picture always gives the same bytes. What becomes of them is the stream's to tell. */
void writePng (const juce::Image& picture, juce::OutputStream& stream);

} // namespace mk::orlo::render
