// SPDX-License-Identifier: AGPL-3.0-or-later
#include "IndexedPicture.h"

#include "ThreadTeam.h"
#include "orlo/analysis/SpectrogramRing.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
// Levels are stored by column and pixels by row. Working in strips of a few columns keeps both in the cache.
constexpr int stripWidth = 32;

/** Sets the pixels from one column up to, not including, another one. */
void paintStrip (const LevelGrid& levels, int left, int right, IndexedPicture& picture) noexcept
{
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
} // namespace

IndexedPicture paintPicture (const LevelGrid& levels, const ColourMap& map, bool inverted, int numThreads)
{
    IndexedPicture picture;
    picture.width = levels.getWidth();
    picture.height = levels.getHeight();
    picture.pixels.resize (size_t (picture.width) * size_t (picture.height));

    picture.colours.push_back (inverted ? map.getColours().getLast() : juce::Colour (SpectrogramRing::background));
    picture.colours.insert (picture.colours.end(), map.getColours().begin(), map.getColours().end());

    forEachIndex ((picture.width + stripWidth - 1) / stripWidth,
                  numThreads,
                  [&] (int strip)
                  {
                      const auto left = strip * stripWidth;
                      paintStrip (levels, left, std::min (left + stripWidth, picture.width), picture);
                  });

    return picture;
}

} // namespace mk::orlo
