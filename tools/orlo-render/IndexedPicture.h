// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LevelGrid.h"
#include "orlo/analysis/ColourMap.h"

#include <cstdint>
#include <vector>

namespace mk::orlo::render
{

/** A picture as numbers into a table of its colours. */
struct IndexedPicture
{
    int width = 0, height = 0;
    std::vector<std::uint16_t> pixels; /**< Row by row, the topmost first. */
    std::vector<juce::Colour> colours; /**< Opaque; some may not occur in the picture. */
};

/** Colours the levels as the live picture does. The colours are the one of silence and those of the map, 257 in
    all.
    @param inverted  the floor is above the ceiling: silence takes the map's last colour, not black */
[[nodiscard]] IndexedPicture paintPicture (const LevelGrid& levels, const ColourMap& map, bool inverted);

} // namespace mk::orlo::render
