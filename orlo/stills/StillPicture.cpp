// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillPicture.h"

#include "orlo/analysis/SpectrogramRing.h"

#include <algorithm>
#include <array>

namespace mk::orlo
{
namespace
{
// Pixels that are coloured at a time: their levels stay in the cache between the loops.
constexpr size_t blockSize = 512;

/** Sets a pixel of either format. */
void setPixel (juce::PixelRGB& pixel, juce::PixelARGB colour) noexcept { pixel.set (colour); }
void setPixel (juce::PixelARGB& pixel, juce::PixelARGB colour) noexcept { pixel = colour; }

/** The colours of a picture, with that of nothing in front. */
struct Palette
{
    explicit Palette (const StillColours& colours) noexcept
        : floorDb (colours.floorDb), slope (1.0f / (colours.ceilingDb - colours.floorDb))
    {
        const auto& pixels = colours.map->getPixels();
        const auto crossed = colours.floorDb > colours.ceilingDb;
        entries[0] = makeColour (crossed ? pixels.getLast() : SpectrogramRing::background);

        for (int i = 0; i < ColourMap::numEntries; ++i)
            entries[size_t (i) + 1] = makeColour (pixels.getReference (i));
    }

    [[nodiscard]] static juce::PixelARGB makeColour (juce::uint32 argb) noexcept
    {
        return { 0xff, juce::uint8 (argb >> 16), juce::uint8 (argb >> 8), juce::uint8 (argb) };
    }

    const float floorDb, slope;
    std::array<juce::PixelARGB, size_t (ColourMap::numEntries) + 1> entries;
};

/** The entries of the palette for some numbers of decibels. */
void findEntries (const float* __restrict decibels,
                  int* __restrict entries,
                  size_t count,
                  const Palette& palette) noexcept
{
    constexpr auto last = float (ColourMap::numEntries - 1);
    const auto floorDb = palette.floorDb;
    const auto slope = palette.slope;

    // As ColourMap::entryForLevel() of StillPicture::levelFor(), so that the loop is vectorised. A NaN, which is the
    // level where floor and ceiling are the same, gives the map's first colour.
    for (size_t i = 0; i < count; ++i)
    {
        const auto level = (decibels[i] - floorDb) * slope;
        const auto limited = 1.0f < level ? 1.0f : level;
        const auto scaled = limited * last;
        const auto entry = scaled > 0.0f ? scaled : 0.0f;

        // To the nearest, of two equally near the even one, as juce::roundToInt().
        constexpr auto offset = 12582912.0f;
        const auto rounded = int ((entry + offset) - offset);
        entries[i] = level <= 0.0f ? 0 : rounded + 1;
    }
}

template <typename Pixel>
void paintRow (std::span<const float> decibels, juce::uint8* line, int pixelStride, const Palette& palette) noexcept
{
    std::array<int, blockSize> entries;

    for (size_t start = 0; start < decibels.size(); start += blockSize)
    {
        const auto count = std::min (blockSize, decibels.size() - start);
        findEntries (decibels.data() + start, entries.data(), count, palette);

        for (size_t i = 0; i < count; ++i, line += pixelStride)
            setPixel (*reinterpret_cast<Pixel*> (line), palette.entries[size_t (entries[i])]);
    }
}
} // namespace

StillPicture::StillPicture (const StillRequest& shown, bool isCoarsePicture, StillMemory& memory)
    : request (shown), coarse (isCoarsePicture), decibels (memory.obtain (size_t (shown.width) * size_t (shown.height)))
{
}

std::span<const float> StillPicture::getRow (int y) const noexcept
{
    return { decibels.get() + size_t (y) * size_t (getWidth()), size_t (getWidth()) };
}

std::span<float> StillPicture::getRow (int y) noexcept
{
    return { decibels.get() + size_t (y) * size_t (getWidth()), size_t (getWidth()) };
}

float StillPicture::levelFor (float dB, float floorDb, float ceilingDb) noexcept
{
    const auto slope = 1.0f / (ceilingDb - floorDb);
    const auto level = (dB - floorDb) * slope;
    return juce::jlimit (0.0f, 1.0f, level);
}

LevelGrid StillPicture::getLevels (float floorDb, float ceilingDb) const
{
    LevelGrid levels (getWidth(), getHeight());
    std::vector<float> column (static_cast<size_t> (getHeight()));

    for (int x = 0; x < getWidth(); ++x)
    {
        for (int y = 0; y < getHeight(); ++y)
            column[size_t (y)] = levelFor (getDecibels (x, y), floorDb, ceilingDb);

        levels.setColumn (x, column);
    }

    return levels;
}

void StillPicture::paint (const StillColours& colours, juce::Image::BitmapData& image, int firstRow, int endRow) const
{
    paint (colours, image, firstRow, endRow, firstRow);
}

void StillPicture::paint (const StillColours& colours,
                          juce::Image::BitmapData& image,
                          int firstRow,
                          int endRow,
                          int firstLine) const
{
    const Palette palette (colours);

    for (int y = firstRow; y < endRow; ++y)
    {
        auto* const line = image.getLinePointer (firstLine + y - firstRow);

        if (image.pixelFormat == juce::Image::RGB)
            paintRow<juce::PixelRGB> (getRow (y), line, image.pixelStride, palette);
        else
            paintRow<juce::PixelARGB> (getRow (y), line, image.pixelStride, palette);
    }
}

juce::Image StillPicture::paint (const StillColours& colours) const
{
    juce::Image image (juce::Image::RGB, getWidth(), getHeight(), false, juce::SoftwareImageType());
    juce::Image::BitmapData data (image, juce::Image::BitmapData::writeOnly);
    paint (colours, data, 0, getHeight());
    return image;
}

} // namespace mk::orlo
