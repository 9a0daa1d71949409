// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/SpectrogramRing.h"

#include <array>
#include <vector>

namespace mk::orlo
{

/** The parts of the view to paint again when columns of the picture have changed, in units of the view; unused ones
    are empty. They are a unit wider on both sides, since rounding to the pixels of a scaled screen moves edges.
    @param pictureWidth  in columns; nothing is to be painted if it is 0
    @param view          all of the view, over which the picture is stretched */
[[nodiscard]] std::array<juce::Rectangle<int>, 2>
    findChangedAreas (ChangedColumns changes, int pictureWidth, juce::Rectangle<int> view);

/** Draws the picture, stretched over the view.

    A picture whose pixels are those of the screen is drawn as it lies in its ring. On a scaled screen, at double
    resolution, or until the picture has the size of a resized window, this keeps a copy in pixels of the screen and
    brings the changed columns of it up to date. There the pixel X of the screen shows column
    floor (X * columns / pixels) of the picture, and rows likewise, whichever part is painted. The scaling of JUCE's
    software renderer is not used: its rounding depends on the left edge of what is painted, so a repainted
    strip would not always match the pixels beside it. [message thread] */
class PicturePainter
{
public:
    /** @param widestTile  of the copy, in pixels; see SpectrogramRing */
    explicit PicturePainter (int widestTile = SpectrogramRing::getDefaultTileWidth()) noexcept
        : maxTileWidth (widestTile)
    {
    }

    /** To be called with every change of the picture. */
    void noteChanges (ChangedColumns newChanges) noexcept;

    /** Draws at least what lies in the clip region of the context.
        @param picture  must not be empty
        @param view     in the context's units; its left top corner is at 0, 0 */
    void paint (juce::Graphics& g, const SpectrogramRing& picture, bool scroll, juce::Rectangle<int> view);

private:
    struct Tile
    {
        juce::Image image;
        int x; // in the copy
    };

    void updateCopy (const SpectrogramRing& picture, bool scroll, juce::Point<double> pixels);
    void setCopySize (int pictureWidth, int pictureHeight, juce::Point<double> pixels);
    void copyColumns (const SpectrogramRing& picture, bool scroll, juce::Range<int> changed);
    void copyPiece (const SpectrogramRing::Piece& piece, juce::Range<int> pixels, Tile& tile) const;

    const int maxTileWidth;

    // One to two pixels larger than the picture, so that it covers one that begins within a pixel of the screen.
    std::vector<Tile> copy;
    juce::Point<double> copySize;    // the picture's on the screen, in pixels, which may not be whole
    std::vector<int> columns, rows;  // of the picture, for each pixel of the copy
    int numColumns = 0, numRows = 0; // of the picture
    ChangedColumns changes;          // since the last update of the copy
};

} // namespace mk::orlo
