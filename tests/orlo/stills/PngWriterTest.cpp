// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/PngWriter.h"

#include "orlo/stills/IndexedPicture.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::orlo::test
{
namespace
{
constexpr unsigned viridis = 2;

/** A grid with one row of the given levels. */
[[nodiscard]] LevelGrid makeRow (const std::vector<float>& levels)
{
    LevelGrid grid (int (levels.size()), 1);

    for (size_t x = 0; x < levels.size(); ++x)
        grid.setColumn (int (x), std::span (&levels[x], 1));

    return grid;
}

[[nodiscard]] juce::Colour colourAt (const IndexedPicture& picture, int x, int y = 0)
{
    return picture.colours[picture.pixels[size_t (y * picture.width + x)]];
}

[[nodiscard]] juce::MemoryBlock write (const IndexedPicture& picture)
{
    juce::MemoryOutputStream stream;
    writePng (picture, stream);
    return stream.getMemoryBlock();
}

[[nodiscard]] juce::Image decode (const juce::MemoryBlock& png)
{
    return juce::ImageFileFormat::loadFrom (png.getData(), png.getSize());
}

void expectSame (const juce::Image& image, const IndexedPicture& picture)
{
    ASSERT_EQ (image.getWidth(), picture.width);
    ASSERT_EQ (image.getHeight(), picture.height);

    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            ASSERT_EQ (image.getPixelAt (x, y).getARGB(), colourAt (picture, x, y).getARGB()) << x << " " << y;
}

[[nodiscard]] int getColourType (const juce::MemoryBlock& png) { return png[25]; }
} // namespace

TEST (IndexedPicture, ColoursLevelsAsTheLivePictureDoes)
{
    const ColourMap map (viridis);
    const auto picture =
        paintPicture (makeRow ({ 0.0f, 1.0e-6f, 0.5f, 1.0f, std::numeric_limits<float>::quiet_NaN() }), map, false, 1);

    EXPECT_EQ (colourAt (picture, 0).getARGB(), 0xff000000u);
    EXPECT_EQ (colourAt (picture, 1).getARGB(), 0xff440154u);
    EXPECT_EQ (colourAt (picture, 2), map.getColours()[128]);
    EXPECT_EQ (colourAt (picture, 3).getARGB(), 0xfffde724u);
    EXPECT_EQ (colourAt (picture, 4).getARGB(), 0xff440154u);
}

TEST (IndexedPicture, GivesSilenceTheLastColourIfTheFloorIsAboveTheCeiling)
{
    const auto picture = paintPicture (makeRow ({ 0.0f, 1.0f }), ColourMap (viridis), true, 1);
    EXPECT_EQ (colourAt (picture, 0).getARGB(), 0xfffde724u);
    EXPECT_EQ (colourAt (picture, 1).getARGB(), 0xfffde724u);
}

TEST (IndexedPicture, KeepsEveryLevelInItsPlace)
{
    LevelGrid grid (70, 50);

    for (int x = 0; x < 70; ++x)
    {
        std::vector<float> column;

        for (int y = 0; y < 50; ++y)
            column.push_back (float ((x * 50 + y) % 256) / 255.0f);

        grid.setColumn (x, column);
    }

    const ColourMap map (0);
    const auto picture = paintPicture (grid, map, false, 1);

    for (int x = 0; x < 70; ++x)
        for (int y = 0; y < 50; ++y)
            ASSERT_EQ (colourAt (picture, x, y), map.getColours()[(x * 50 + y) % 256]);
}

TEST (PngWriter, WritesAPictureThatReadersDecodeUnchanged)
{
    for (const auto width : { 1, 2, 301 })
        for (const auto height : { 1, 3, 200 })
        {
            IndexedPicture picture { width, height, {}, { juce::Colours::black, juce::Colours::red } };
            picture.colours.push_back (juce::Colour (0xff123456));

            for (int i = 0; i < width * height; ++i)
                picture.pixels.push_back (std::uint16_t ((i / 7 + i / width) % 3));

            const auto png = write (picture);
            EXPECT_EQ (getColourType (png), 3);
            expectSame (decode (png), picture);
        }
}

TEST (PngWriter, WritesTrueColourIfThePaletteIsTooSmall)
{
    // Silence is black, so with a map without black there are 257 colours.
    std::vector<float> levels { 0.0f };

    for (int i = 0; i < 256; ++i)
        levels.push_back (i == 0 ? 1.0e-6f : float (i) / 255.0f);

    const auto all = paintPicture (makeRow (levels), ColourMap (viridis), false, 1);
    EXPECT_EQ (getColourType (write (all)), 2);
    expectSame (decode (write (all)), all);

    levels.pop_back();
    const auto oneLess = paintPicture (makeRow (levels), ColourMap (viridis), false, 1);
    EXPECT_EQ (getColourType (write (oneLess)), 3);
    expectSame (decode (write (oneLess)), oneLess);
}

} // namespace mk::orlo::test
