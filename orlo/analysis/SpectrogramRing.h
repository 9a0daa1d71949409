// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColourMap.h"
#include "ColumnSettings.h"

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace mk::orlo
{

/** Neighbouring columns of the part that is shown, counted from its left edge. A range that reaches the right edge
    may continue at the left one: first + count may be greater than the width. */
struct ChangedColumns
{
    int first = 0, count = 0;

    [[nodiscard]] bool isEmpty() const noexcept { return count == 0; }
};

/** The picture: a ring twice as wide as the part shown, written column by column.

    Scroll writes round the whole ring and shows the newest half of it; Static sweeps inside one half
    and shows that half. So neither moves any pixel. The pixels are opaque and lie in tiles, since on some systems
    drawing an image that has changed first copies all of it. One thread at a time.
*/
class SpectrogramRing
{
public:
    static constexpr juce::uint32 background = 0xff000000;

    /** @param widestTile  in columns, at least 1; by default what the system draws fastest */
    explicit SpectrogramRing (int widestTile = getDefaultTileWidth()) noexcept : maxTileWidth (widestTile) {}

    /** Makes the picture width by height pixels, both at least 1, and copies the old one into it: columns
        keep their width unless the picture's width is exactly doubled or halved, rows are stretched.
        Allocates. */
    void resize (int width, int height, bool scroll);

    /** For a change from Scroll to Static: clears the picture to black and goes on at the left of a half. */
    void restart();

    /** Paints the columns at the write position and advances it. Column i is painted at
        start + (writeX - start + i) % length: in Scroll, start is 0 and length is that of the whole ring; in
        Static they are those of the half, so that a sweep continues at the half's left edge. For a column whose
        height is not the picture's, the old pixels are kept.
        @param zeroColour  ARGB of a level of 0 or less */
    void paint (const std::vector<Column>& columns, const ColourMap& map, juce::uint32 zeroColour, bool scroll);

    /** The columns of the shown part whose pixels differ from those at the last call. Silence that is painted over
        silence, or that has scrolled through, changes nothing. */
    [[nodiscard]] ChangedColumns takeChanges() noexcept { return std::exchange (changes, {}); }

    //==============================================================================
    /** The size of the part that is shown, in pixels; 0 before the first resize(). */
    [[nodiscard]] int getWidth() const noexcept { return ringWidth / 2; }
    [[nodiscard]] int getHeight() const noexcept { return height; }

    /** The next column to write, 0 .. 2 * getWidth() - 1. */
    [[nodiscard]] int getWriteX() const noexcept { return writeX; }

    /** Some columns of the part that is shown. The image may reach beyond the part's left and right edges. */
    struct Piece
    {
        const juce::Image& image;
        int x; /**< Of the image's left edge, counted from the left edge of the part. */
    };

    /** Calls the action with the pieces that make up the part that is shown. */
    template <typename Action>
    void forEachPiece (bool scroll, Action&& action) const
    {
        const auto start = getShownStart (scroll);

        for (size_t i = 0; i < tiles.size(); ++i)
            for (const auto x : { int (i) * tileWidth - start, int (i) * tileWidth - start + ringWidth })
                if (x < getWidth() && x + tiles[i].getWidth() > 0)
                    action (Piece { tiles[i], x });
    }

    /** A copy of the columns, which may reach beyond the ring's right edge and then continue at its left one. */
    [[nodiscard]] juce::Image copyColumns (int firstColumn, int numColumns) const;

    /** A copy of the part that is shown. */
    [[nodiscard]] juce::Image copyShownPart (bool scroll) const
    {
        return copyColumns (getShownStart (scroll), getWidth());
    }

    /** In columns: whole halves, unless the system copies an image that has changed before it draws it. */
    [[nodiscard]] static int getDefaultTileWidth() noexcept;

    /** The one that the system draws fastest. */
    [[nodiscard]] static juce::Image::PixelFormat getPixelFormat() noexcept;

private:
    /** The left edge of the half that the write position is in. */
    [[nodiscard]] int getHalfStart() const noexcept { return writeX < getWidth() ? 0 : getWidth(); }

    /** The column of the ring that is shown at the left. */
    [[nodiscard]] int getShownStart (bool scroll) const noexcept;

    void makeTiles();
    void cutIntoTiles (const juce::Image& whole);
    void noteAllChanged() noexcept;
    void noteSwept (int column) noexcept;
    void noteScrolled (int numIdenticalBefore) noexcept;
    bool paintColumn (int x, const Column& column, const ColourMap& map, juce::uint32 zeroColour);
    [[nodiscard]] bool isLikeThePreviousColumn (int x) const;

    const int maxTileWidth;
    int ringWidth = 0, height = 0, tileWidth = 0;
    std::vector<juce::Image> tiles; // from left to right, tileWidth wide but for the last one
    int writeX = 0;

    ChangedColumns changes;
    bool wasScrolling = false;
    int numIdentical = 1; // in Scroll, how many of the newest columns are known to be identical
};

} // namespace mk::orlo
