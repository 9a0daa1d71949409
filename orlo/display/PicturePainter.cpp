// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PicturePainter.h"

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
    const auto toPixels = juce::AffineTransform::scale (1.0f / pixelsPerUnit);
    const auto pixels = view.getBottomRight().toDouble() * double (pixelsPerUnit);

    if (g.isClipEmpty() || pixels.x < 1.0 || pixels.y < 1.0)
        return;

    g.setImageResamplingQuality (juce::Graphics::lowResamplingQuality);

    if (pixels == juce::Point { picture.getWidth(), picture.getHeight() }.toDouble())
    {
        picture.forEachPiece (scroll,
                              [&] (const SpectrogramRing::Piece& piece)
                              {
                                  const auto toItsPlace = juce::AffineTransform::translation (float (piece.x), 0.0f);
                                  g.drawImageTransformed (piece.image, toItsPlace.followedBy (toPixels));
                              });
        return;
    }

    updateCopy (picture, scroll, pixels);
    g.drawImageTransformed (copy, toPixels);
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
    copy = juce::Image (juce::Image::RGB, int (columns.size()), int (rows.size()), false, juce::SoftwareImageType());
    changes = { 0, numColumns };
}

void PicturePainter::copyColumns (const SpectrogramRing& picture, bool scroll, juce::Range<int> changed)
{
    if (changed.isEmpty())
        return;

    juce::Image::BitmapData target (copy, juce::Image::BitmapData::readWrite);
    picture.forEachPiece (scroll, [&] (const SpectrogramRing::Piece& piece) { copyPiece (piece, changed, target); });
}

void PicturePainter::copyPiece (const SpectrogramRing::Piece& piece,
                                juce::Range<int> changed,
                                juce::Image::BitmapData& target) const
{
    const auto shown = changed.getIntersectionWith ({ piece.x, piece.x + piece.image.getWidth() });
    const auto pixels = findPixels (columns, shown);

    if (pixels.isEmpty())
        return;

    const juce::Image::BitmapData source (piece.image, juce::Image::BitmapData::readOnly);
    const auto rowLength = size_t (pixels.getLength() * target.pixelStride);

    for (int y = 0; y < target.height; ++y)
    {
        auto* pixel = target.getPixelPointer (pixels.getStart(), y);

        // Several rows of the screen may show the same one of the picture.
        if (y > 0 && rows[size_t (y)] == rows[size_t (y - 1)])
        {
            std::memcpy (pixel, pixel - target.lineStride, rowLength);
            continue;
        }

        // The three bytes of a colour lie in the same order in both formats; alpha, if there is any, comes after them.
        const auto* const line = source.getLinePointer (rows[size_t (y)]);

        for (int x = pixels.getStart(); x < pixels.getEnd(); ++x)
        {
            std::memcpy (pixel, line + (columns[size_t (x)] - piece.x) * source.pixelStride, 3);
            pixel += target.pixelStride;
        }
    }
}

} // namespace mk::orlo
