// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramRing.h"

#include <cstring>

namespace mk::orlo
{
namespace
{
[[nodiscard]] juce::Image makeImage (int width, int height)
{
    juce::Image image (juce::Image::ARGB, width, height, false, juce::SoftwareImageType());
    image.clear (image.getBounds(), juce::Colour (SpectrogramRing::background));
    return image;
}

/** How many half columns an old column becomes: 4 if the width was doubled, 1 if halved, else 2.
    Counted in halves to keep the arithmetic in whole numbers. */
[[nodiscard]] int getHalfColumnsPerColumn (int oldWidth, int newWidth) noexcept
{
    return newWidth == 2 * oldWidth ? 4 : 2 * newWidth == oldWidth ? 1 : 2;
}

/** Draws columns of an image, from sourceX up to sourceEnd, so that the last one ends at destinationEnd,
    stretched to the destination's height and clipped to the given stretch of it. */
void drawColumns (juce::Image& destination,
                  const juce::Image& source,
                  juce::Range<int> sourceX,
                  int destinationEnd,
                  juce::Range<int> clip,
                  int halfColumnsPerColumn)
{
    if (sourceX.isEmpty() || clip.isEmpty())
        return;

    // Blending neighbours would give colours that the map does not have.
    juce::Graphics g (destination);
    g.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
    g.reduceClipRegion (clip.getStart(), 0, clip.getLength(), destination.getHeight());

    const auto width = sourceX.getLength() * halfColumnsPerColumn / 2;
    g.drawImage (source,
                 destinationEnd - width,
                 0,
                 width,
                 destination.getHeight(),
                 sourceX.getStart(),
                 0,
                 sourceX.getLength(),
                 source.getHeight());
}
} // namespace

//==============================================================================
void SpectrogramRing::resize (int width, int height, bool scroll)
{
    const auto old = std::exchange (image, makeImage (2 * width, height));
    ++numRebuilds;

    if (old.isNull())
        return;

    const auto halfColumnsPerColumn = getHalfColumnsPerColumn (old.getWidth() / 2, width);

    if (scroll)
        carryOverScrolling (old, halfColumnsPerColumn);
    else
        carryOverStatic (old, halfColumnsPerColumn);
}

void SpectrogramRing::carryOverScrolling (const juce::Image& old, int halfColumnsPerColumn)
{
    // The newest column ends just before the write position and the older ones lie to its left. Columns that
    // would lie beyond the ring's left edge wrap round to its right edge, down to the write position.
    const auto ringWidth = image.getWidth();
    const auto oldWriteX = writeX;
    writeX = juce::jmin (writeX, ringWidth - 1);

    const juce::Range<int> newer (0, oldWriteX), older (oldWriteX, old.getWidth());
    const auto olderEnd = writeX - newer.getLength() * halfColumnsPerColumn / 2;

    const juce::Range<int> leftOfWriteX (0, writeX), rightOfWriteX (writeX, ringWidth);
    drawColumns (image, old, newer, writeX, leftOfWriteX, halfColumnsPerColumn);
    drawColumns (image, old, older, olderEnd, leftOfWriteX, halfColumnsPerColumn);
    drawColumns (image, old, newer, writeX + ringWidth, rightOfWriteX, halfColumnsPerColumn);
    drawColumns (image, old, older, olderEnd + ringWidth, rightOfWriteX, halfColumnsPerColumn);
}

void SpectrogramRing::carryOverStatic (const juce::Image& old, int halfColumnsPerColumn)
{
    const auto oldWidth = old.getWidth() / 2;
    const auto width = getWidth();
    const auto inSecondHalf = writeX >= oldWidth;
    const auto oldStart = inSecondHalf ? oldWidth : 0;
    const auto start = inSecondHalf ? width : 0;
    const juce::Range<int> half (start, start + width);

    // The sweep keeps its position. If the picture has become too narrow for it, the newest columns are kept
    // and the sweep continues at the left.
    const auto swept = (writeX - oldStart) * halfColumnsPerColumn / 2;
    const auto overhang = juce::jmax (0, swept - width);
    drawColumns (image,
                 old,
                 { oldStart, oldStart + oldWidth },
                 start - overhang + oldWidth * halfColumnsPerColumn / 2,
                 half,
                 halfColumnsPerColumn);
    writeX = start + (swept >= width ? 0 : swept);
}

void SpectrogramRing::restart()
{
    if (image.isNull())
    {
        writeX = 0;
        return;
    }

    writeX = getHalfStart();
    ++numRebuilds;
    image.clear (image.getBounds(), juce::Colour (background));
}

//==============================================================================
void SpectrogramRing::paint (const std::vector<Column>& columns,
                             const ColourMap& map,
                             juce::uint32 zeroColour,
                             bool scroll)
{
    if (image.isNull())
        return;

    const juce::Image::BitmapData data (image, juce::Image::BitmapData::writeOnly);
    const auto numNew = int (columns.size());

    // Scroll writes round the whole ring, Static round one half.
    const auto start = scroll ? 0 : getHalfStart();
    const auto length = scroll ? image.getWidth() : getWidth();
    const auto xOf = [=, firstX = writeX - start] (int index) { return start + (firstX + index) % length; };

    for (int i = 0; i < numNew; ++i)
    {
        const auto& column = columns[size_t (i)];

        if (int (column.size()) != data.height)
            continue;

        auto* pixel = data.getPixelPointer (xOf (i), 0);

        for (const auto level : column)
        {
            // Opaque pixels are the same with and without premultiplication. The map handles a NaN.
            const auto colour = level <= 0.0f ? zeroColour : map.pixelForLevel (level);
            std::memcpy (pixel, &colour, sizeof (colour));
            pixel += data.lineStride;
        }
    }

    writeX = xOf (numNew);

    numColumns += numNew;
    numRebuilds += scroll ? 1 : 0; // all columns have moved
}

SpectrogramRing::MissingColumns SpectrogramRing::findMissing (const Snapshot& snapshot) const noexcept
{
    const auto width = getWidth();
    const auto numNew = numColumns - snapshot.numColumns;

    if (snapshot.scroll || snapshot.numRebuilds != numRebuilds || numNew >= width)
        return { { 0, width }, {} };

    // The sweep ends before the write position and may have wrapped round at the right edge.
    const auto end = writeX - getHalfStart();
    const auto start = end - int (numNew);
    return { { juce::jmax (0, start), end }, { start < 0 ? width + start : width, width } };
}

void SpectrogramRing::copyColumns (juce::Image& destination, int destinationX, juce::Range<int> columns) const
{
    if (columns.isEmpty())
        return;

    const juce::Image::BitmapData from (image, juce::Image::BitmapData::readOnly);
    const juce::Image::BitmapData to (destination, juce::Image::BitmapData::readWrite);
    const auto numBytes = size_t (columns.getLength()) * size_t (from.pixelStride);

    for (int y = 0; y < from.height; ++y)
        std::memcpy (to.getPixelPointer (destinationX, y), from.getPixelPointer (columns.getStart(), y), numBytes);
}

void SpectrogramRing::copyShownPart (Snapshot& snapshot, bool scroll) const
{
    if (image.isNull())
        return;

    const auto width = getWidth();

    if (snapshot.image.getWidth() != width || snapshot.image.getHeight() != getHeight())
        snapshot = { makeImage (width, getHeight()) };

    if (scroll)
    {
        const auto startX = (writeX + width) % (2 * width);
        const auto untilEdge = juce::jmin (width, 2 * width - startX);
        copyColumns (snapshot.image, 0, { startX, startX + untilEdge });
        copyColumns (snapshot.image, untilEdge, { 0, width - untilEdge });
    }
    else
    {
        const auto missing = findMissing (snapshot);
        const auto start = getHalfStart();
        copyColumns (snapshot.image, missing.first.getStart(), missing.first + start);
        copyColumns (snapshot.image, missing.second.getStart(), missing.second + start);
    }

    snapshot.numRebuilds = numRebuilds;
    snapshot.numColumns = numColumns;
    snapshot.scroll = scroll;
}

} // namespace mk::orlo
