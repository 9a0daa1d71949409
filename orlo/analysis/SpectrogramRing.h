// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColourMap.h"
#include "ColumnSettings.h"
#include "Snapshot.h"

namespace mk::orlo
{

/** The picture while it is being painted: an image twice as wide as the part shown, written column by column.

    Scroll writes round the whole image and shows the newest half of it; Static sweeps inside one half
    and shows that half. One thread at a time.
*/
class SpectrogramRing
{
public:
    static constexpr juce::uint32 background = 0xff000000;

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

    /** Copies the part that is shown into the snapshot, whose image is replaced if it has another size. If this
        ring has filled the snapshot before, only the changes since then are copied. Does nothing before the
        first resize(). */
    void copyShownPart (Snapshot& snapshot, bool scroll) const;

    /** The size of the part that is shown, in pixels; 0 before the first resize(). */
    [[nodiscard]] int getWidth() const noexcept { return image.getWidth() / 2; }
    [[nodiscard]] int getHeight() const noexcept { return image.getHeight(); }

    /** The next column to write, 0 .. 2 * getWidth() - 1. */
    [[nodiscard]] int getWriteX() const noexcept { return writeX; }

    /** The whole ring, for tests. */
    [[nodiscard]] const juce::Image& getImage() const noexcept { return image; }

private:
    /** The left edge of the half that the write position is in. */
    [[nodiscard]] int getHalfStart() const noexcept { return writeX < getWidth() ? 0 : getWidth(); }

    void carryOverScrolling (const juce::Image& old, int halfColumnsPerColumn);
    void carryOverStatic (const juce::Image& old, int halfColumnsPerColumn);

    /** The columns of the shown part that a snapshot lacks, counted from the part's left edge. */
    struct MissingColumns
    {
        juce::Range<int> first, second;
    };

    [[nodiscard]] MissingColumns findMissing (const Snapshot& snapshot) const noexcept;
    void copyColumns (juce::Image& destination, int destinationX, juce::Range<int> columns) const;

    juce::Image image;
    int writeX = 0;

    // Compared with those of a snapshot to find out what it lacks.
    int numRebuilds = 0; // changes other than columns of a sweep
    juce::int64 numColumns = 0;
};

} // namespace mk::orlo
