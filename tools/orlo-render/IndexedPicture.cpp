// SPDX-License-Identifier: AGPL-3.0-or-later
#include "IndexedPicture.h"

#include "orlo/analysis/SpectrogramRing.h"

#include <algorithm>

namespace mk::orlo::render
{

IndexedPicture paintPicture (const LevelGrid& levels, const ColourMap& map, bool inverted)
{
    IndexedPicture picture;
    picture.width = levels.getWidth();
    picture.height = levels.getHeight();
    picture.pixels.resize (size_t (picture.width) * size_t (picture.height));

    picture.colours.push_back (inverted ? map.getColours().getLast() : juce::Colour (SpectrogramRing::background));
    picture.colours.insert (picture.colours.end(), map.getColours().begin(), map.getColours().end());

    // Levels are stored by column and pixels by row. Working in strips of a few columns keeps both in the cache.
    constexpr int stripWidth = 32;

    for (int left = 0; left < picture.width; left += stripWidth)
    {
        const auto right = std::min (left + stripWidth, picture.width);

        for (int y = 0; y < picture.height; ++y)
        {
            auto* const row = picture.pixels.data() + size_t (y) * size_t (picture.width);

            for (int x = left; x < right; ++x)
            {
                const auto level = levels.get (x, y);
                row[x] = std::uint16_t (level <= 0.0f ? 0 : 1 + ColourMap::entryForLevel (level));
            }
        }
    }

    return picture;
}

} // namespace mk::orlo::render
