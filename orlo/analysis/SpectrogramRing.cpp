// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramRing.h"

#include "RingResize.h"

#include <cstring>
#include <limits>

namespace mk::orlo
{
namespace
{
[[nodiscard]] juce::Image makeImage (int width, int height, const juce::ImageType& type)
{
    juce::Image image (SpectrogramRing::getPixelFormat(), width, height, false, type);
    image.clear (image.getBounds(), juce::Colour (SpectrogramRing::background));
    return image;
}

/** Writes an opaque colour in the format of the image. True if the pixel had another one. */
[[nodiscard]] bool setPixel (juce::uint8* pixel, juce::uint32 argb, juce::Image::PixelFormat format) noexcept
{
    const juce::PixelARGB colour (0xff, juce::uint8 (argb >> 16), juce::uint8 (argb >> 8), juce::uint8 (argb));

    // A system's own images may have an alpha channel although none was asked for.
    if (format == juce::Image::ARGB)
    {
        const auto native = colour.getNativeARGB();
        const auto differs = std::memcmp (pixel, &native, sizeof (native)) != 0;
        std::memcpy (pixel, &native, sizeof (native));
        return differs;
    }

    juce::PixelRGB rgb;
    rgb.set (colour);
    const auto differs = std::memcmp (pixel, &rgb, sizeof (rgb)) != 0;
    std::memcpy (pixel, &rgb, sizeof (rgb));
    return differs;
}
} // namespace

int SpectrogramRing::getDefaultTileWidth() noexcept
{
    // JUCE's software renderer draws an image from where it lies. Elsewhere, drawing an image that has changed copies
    // all of it to the graphics system first.
#if JUCE_LINUX || JUCE_BSD
    return std::numeric_limits<int>::max();
#else
    return 64;
#endif
}

juce::Image::PixelFormat SpectrogramRing::getPixelFormat() noexcept
{
    // On Linux that of JUCE's windows, so that rows can be copied; elsewhere without the alpha channel, which would be
    // blended.
#if JUCE_LINUX || JUCE_BSD
    return juce::Image::ARGB;
#else
    return juce::Image::RGB;
#endif
}

//==============================================================================
void SpectrogramRing::resize (int width, int newHeight, bool scroll)
{
    const RingImage old { copyColumns (0, ringWidth), writeX };
    RingImage target { makeImage (2 * width, newHeight, juce::SoftwareImageType()), writeX };

    if (old.image.isValid())
        carryOver (old, target, scroll);

    ringWidth = 2 * width;
    height = newHeight;
    writeX = target.writeX;
    makeTiles();
    cutIntoTiles (target.image);
    noteAllChanged();
}

void SpectrogramRing::makeTiles()
{
    tileWidth = juce::jmin (maxTileWidth, getWidth());
    tiles.clear();

    for (int x = 0; x < ringWidth; x += tileWidth)
        tiles.push_back (makeImage (juce::jmin (tileWidth, ringWidth - x), height, juce::NativeImageType()));
}

void SpectrogramRing::cutIntoTiles (const juce::Image& whole)
{
    int x = 0;

    for (auto& tile : tiles)
    {
        juce::Graphics g (tile);
        g.drawImageAt (whole, -x, 0);
        x += tileWidth;
    }
}

void SpectrogramRing::restart()
{
    writeX = getHalfStart();

    for (auto& tile : tiles)
        tile.clear (tile.getBounds(), juce::Colour (background));

    noteAllChanged();
}

//==============================================================================
void SpectrogramRing::paint (const std::vector<Column>& columns,
                             const ColourMap& map,
                             juce::uint32 zeroColour,
                             bool scroll)
{
    if (tiles.empty())
        return;

    if (std::exchange (wasScrolling, scroll) != scroll)
        noteAllChanged();

    // Scroll writes round the whole ring, Static round one half.
    const auto start = scroll ? 0 : getHalfStart();
    const auto length = scroll ? ringWidth : getWidth();
    const auto numIdenticalBefore = numIdentical;
    auto areAllIdentical = true;

    for (const auto& column : columns)
    {
        const auto isChanged = paintColumn (writeX, column, map, zeroColour);

        if (scroll)
        {
            const auto isIdentical = isLikeThePreviousColumn (writeX);
            numIdentical = isIdentical ? juce::jmin (numIdentical + 1, ringWidth) : 1;
            areAllIdentical = areAllIdentical && isIdentical;
        }
        else if (isChanged)
        {
            noteSwept (writeX - start);
        }

        writeX = start + (writeX - start + 1) % length;
    }

    if (scroll && ! columns.empty())
        noteScrolled (areAllIdentical ? numIdenticalBefore : 0);
}

bool SpectrogramRing::paintColumn (int x, const Column& column, const ColourMap& map, juce::uint32 zeroColour)
{
    if (int (column.size()) != height)
        return false;

    auto& tile = tiles[size_t (x / tileWidth)];
    const juce::Image::BitmapData data (tile, x % tileWidth, 0, 1, height, juce::Image::BitmapData::readWrite);
    auto* pixel = data.data;
    auto isChanged = false;

    for (const auto level : column)
    {
        // Opaque pixels are the same with and without premultiplication. The map handles a NaN.
        const auto colour = level <= 0.0f ? zeroColour : map.pixelForLevel (level);
        isChanged |= setPixel (pixel, colour, data.pixelFormat);
        pixel += data.lineStride;
    }

    return isChanged;
}

bool SpectrogramRing::isLikeThePreviousColumn (int x) const
{
    const auto getData = [this] (int column)
    {
        const auto& tile = tiles[size_t (column / tileWidth)];
        return juce::Image::BitmapData (tile, juce::Image::BitmapData::readOnly);
    };

    const auto previous = (x + ringWidth - 1) % ringWidth;
    const auto data = getData (x), previousData = getData (previous);

    for (int y = 0; y < height; ++y)
        if (std::memcmp (data.getPixelPointer (x % tileWidth, y),
                         previousData.getPixelPointer (previous % tileWidth, y),
                         size_t (data.pixelStride))
            != 0)
            return false;

    return true;
}

//==============================================================================
void SpectrogramRing::noteAllChanged() noexcept
{
    changes = { 0, getWidth() };
    numIdentical = 1;
}

void SpectrogramRing::noteSwept (int column) noexcept
{
    if (changes.isEmpty())
        changes.first = column;

    const auto width = getWidth();
    changes.count = juce::jmax (changes.count, (column - changes.first + width) % width + 1);
}

void SpectrogramRing::noteScrolled (int numIdenticalBefore) noexcept
{
    // To the right of these, columns have been replaced by identical ones.
    const auto numMoved = juce::jmax (0, getWidth() - numIdenticalBefore);
    changes = { 0, juce::jmax (changes.count, numMoved) };
}

//==============================================================================
int SpectrogramRing::getShownStart (bool scroll) const noexcept
{
    return ringWidth == 0 ? 0 : scroll ? (writeX + getWidth()) % ringWidth : getHalfStart();
}

juce::Image SpectrogramRing::copyColumns (int firstColumn, int numColumns) const
{
    if (numColumns < 1)
        return {};

    auto copy = makeImage (numColumns, height, juce::SoftwareImageType());
    juce::Graphics g (copy);
    int x = -firstColumn;

    for (const auto& tile : tiles)
    {
        g.drawImageAt (tile, x, 0);
        g.drawImageAt (tile, x + ringWidth, 0);
        x += tileWidth;
    }

    return copy;
}

} // namespace mk::orlo
