// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LevelGrid.h"
#include "orlo/analysis/ColourMap.h"

#include <cstdint>
#include <vector>

namespace mk::orlo
{

/** A picture whose pixels are indices into a table of colours. */
struct IndexedPicture
{
    int width = 0, height = 0;
    std::vector<std::uint16_t> pixels; /**< Row by row, the topmost first. */
    std::vector<juce::Colour> colours; /**< Opaque; some may not occur in the picture. */
};

/** Colours the levels as the live picture does. The table has 257 colours: that of silence and the 256 of the
    map.
    @param inverted    the floor is above the ceiling: silence takes the map's last colour, not black
    @param numThreads  threads that share the work, at least 1 */
[[nodiscard]] IndexedPicture
    paintPicture (const LevelGrid& levels, const ColourMap& map, bool inverted, int numThreads);

} // namespace mk::orlo
