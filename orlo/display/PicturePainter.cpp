// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PicturePainter.h"

#include "OpaqueImage.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace mk::orlo
{
namespace
{
/** For each of the pixels and one or two more, the cell of the picture that it shows. */
void assignCells (std::vector<int>& cells, int numCells, double numPixels)
{
    cells.resize (size_t (std::ceil (numPixels)) + 1);

    for (size_t i = 0; i < cells.size(); ++i)
        cells[i] = std::min (numCells - 1, int (double (i) * numCells / numPixels));
}

/** The pixels that show some of the cells. */
[[nodiscard]] juce::Range<int> findPixels (const std::vector<int>& cells, juce::Range<int> wanted)
{
    const auto begin = std::lower_bound (cells.begin(), cells.end(), wanted.getStart());
    const auto end = std::lower_bound (begin, cells.end(), wanted.getEnd());
    return { int (begin - cells.begin()), int (end - cells.begin()) };
}
} // namespace

std::array<juce::Rectangle<int>, 2>
    findChangedAreas (ChangedColumns changes, int pictureWidth, juce::Rectangle<int> view)
{
    if (changes.isEmpty() || pictureWidth < 1)
        return {};

    const auto unitsPerColumn = double (view.getWidth()) / pictureWidth;
    const auto findArea = [&] (int first, int end)
    {
        const auto left = int (std::floor (first * unitsPerColumn)) - 1;
        const auto right = int (std::ceil (end * unitsPerColumn)) + 1;
        return view.getIntersection (view.withX (view.getX() + left).withWidth (right - left));
    };

    const auto end = changes.first + changes.count;
    return { findArea (changes.first, std::min (end, pictureWidth)),
             end > pictureWidth ? findArea (0, end - pictureWidth) : juce::Rectangle<int> {} };
}

//==============================================================================
void PicturePainter::noteChanges (ChangedColumns newChanges) noexcept
{
    if (changes.isEmpty())
        changes = newChanges;
    else if (! newChanges.isEmpty())
        changes = { 0, numColumns };
}

void PicturePainter::paint (juce::Graphics& g, const SpectrogramRing& picture, bool scroll, juce::Rectangle<int> view)
{
    const auto pixelsPerUnit = g.getInternalContext().getPhysicalPixelScaleFactor();
    const auto pixels = view.getBottomRight().toDouble() * double (pixelsPerUnit);

    if (g.isClipEmpty() || pixels.x < 1.0 || pixels.y < 1.0)
        return;

    g.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);
    const auto draw = [&g, pixelsPerUnit] (const juce::Image& image, int x)
    { drawOpaqueImage (g, image, juce::AffineTransform::translation (float (x), 0.0f).scaled (1.0f / pixelsPerUnit)); };

    if (pixels == juce::Point { picture.getWidth(), picture.getHeight() }.toDouble())
    {
        picture.forEachPiece (scroll, [&] (const SpectrogramRing::Piece& piece) { draw (piece.image, piece.x); });
        return;
    }

    updateCopy (picture, scroll, pixels);

    for (const auto& tile : copy)
        draw (tile.image, tile.x);
}

//==============================================================================
void PicturePainter::updateCopy (const SpectrogramRing& picture, bool scroll, juce::Point<double> pixels)
{
    if (pixels != copySize || picture.getWidth() != numColumns || picture.getHeight() != numRows)
        setCopySize (picture.getWidth(), picture.getHeight(), pixels);

    const auto changed = std::exchange (changes, {});
    const auto end = changed.first + changed.count;
    copyColumns (picture, scroll, { changed.first, std::min (end, numColumns) });

    if (end > numColumns)
        copyColumns (picture, scroll, { 0, std::min (end - numColumns, changed.first) });
}

void PicturePainter::setCopySize (int pictureWidth, int pictureHeight, juce::Point<double> pixels)
{
    copySize = pixels;
    numColumns = pictureWidth;
    numRows = pictureHeight;
    assignCells (columns, numColumns, pixels.x);
    assignCells (rows, numRows, pixels.y);
    copy.clear();

    for (int x = 0, width = int (columns.size()); x < width; x += copy.back().image.getWidth())
    {
        juce::Image image (
            SpectrogramRing::getPixelFormat(), std::min (maxTileWidth, width - x), int (rows.size()), false);
        image.clear (image.getBounds(), juce::Colours::black); // opaque
        copy.push_back ({ image, x });
    }

    changes = { 0, numColumns };
}

void PicturePainter::copyColumns (const SpectrogramRing& picture, bool scroll, juce::Range<int> changed)
{
    picture.forEachPiece (
        scroll,
        [&] (const SpectrogramRing::Piece& piece)
        {
            const auto shown = changed.getIntersectionWith ({ piece.x, piece.x + piece.image.getWidth() });
            const auto pixels = findPixels (columns, shown);

            for (auto& tile : copy)
                if (pixels.intersects ({ tile.x, tile.x + tile.image.getWidth() }))
                    copyPiece (piece, pixels, tile);
        });
}

void PicturePainter::copyPiece (const SpectrogramRing::Piece& piece, juce::Range<int> pixels, Tile& tile) const
{
    const auto inTile = pixels.getIntersectionWith ({ tile.x, tile.x + tile.image.getWidth() });
    const juce::Image::BitmapData source (piece.image, juce::Image::BitmapData::readOnly);
    const juce::Image::BitmapData target (tile.image, juce::Image::BitmapData::readWrite);
    const auto rowLength = size_t (inTile.getLength()) * size_t (target.pixelStride);

    for (int y = 0; y < target.height; ++y)
    {
        auto* pixel = target.getPixelPointer (inTile.getStart() - tile.x, y);

        // Several rows of the screen may show the same one of the picture.
        if (y > 0 && rows[size_t (y)] == rows[size_t (y - 1)])
        {
            std::memcpy (pixel, pixel - target.lineStride, rowLength);
            continue;
        }

        // The three bytes of a colour lie in the same order in both formats; alpha, if there is any, comes after them.
        const auto* const line = source.getLinePointer (rows[size_t (y)]);

        for (int x = inTile.getStart(); x < inTile.getEnd(); ++x)
        {
            std::memcpy (pixel, line + std::ptrdiff_t (columns[size_t (x)] - piece.x) * source.pixelStride, 3);
            pixel += target.pixelStride;
        }
    }
}

} // namespace mk::orlo
