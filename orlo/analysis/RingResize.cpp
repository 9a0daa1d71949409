// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RingResize.h"

namespace mk::orlo
{
namespace
{
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

void carryOverScrolling (const RingImage& old, RingImage& target, int halfColumnsPerColumn)
{
    // The newest column ends just before the write position and the older ones lie to its left. Columns that
    // would lie beyond the ring's left edge wrap round to its right edge, down to the write position.
    const auto ringWidth = target.image.getWidth();
    const auto writeX = target.writeX = juce::jmin (old.writeX, ringWidth - 1);

    const juce::Range<int> newer (0, old.writeX), older (old.writeX, old.image.getWidth());
    const auto olderEnd = writeX - newer.getLength() * halfColumnsPerColumn / 2;

    const juce::Range<int> leftOfWriteX (0, writeX), rightOfWriteX (writeX, ringWidth);
    drawColumns (target.image, old.image, newer, writeX, leftOfWriteX, halfColumnsPerColumn);
    drawColumns (target.image, old.image, older, olderEnd, leftOfWriteX, halfColumnsPerColumn);
    drawColumns (target.image, old.image, newer, writeX + ringWidth, rightOfWriteX, halfColumnsPerColumn);
    drawColumns (target.image, old.image, older, olderEnd + ringWidth, rightOfWriteX, halfColumnsPerColumn);
}

void carryOverStatic (const RingImage& old, RingImage& target, int halfColumnsPerColumn)
{
    const auto oldWidth = old.image.getWidth() / 2;
    const auto width = target.image.getWidth() / 2;
    const auto inSecondHalf = old.writeX >= oldWidth;
    const auto oldStart = inSecondHalf ? oldWidth : 0;
    const auto start = inSecondHalf ? width : 0;
    const juce::Range<int> half (start, start + width);

    // The sweep keeps its position. If the picture has become too narrow for it, the newest columns are kept
    // and the sweep continues at the left.
    const auto swept = (old.writeX - oldStart) * halfColumnsPerColumn / 2;
    const auto overhang = juce::jmax (0, swept - width);
    drawColumns (target.image,
                 old.image,
                 { oldStart, oldStart + oldWidth },
                 start - overhang + oldWidth * halfColumnsPerColumn / 2,
                 half,
                 halfColumnsPerColumn);
    target.writeX = start + (swept >= width ? 0 : swept);
}
} // namespace

void carryOver (const RingImage& old, RingImage& target, bool scroll)
{
    const auto halfColumnsPerColumn = getHalfColumnsPerColumn (old.image.getWidth() / 2, target.image.getWidth() / 2);

    if (scroll)
        carryOverScrolling (old, target, halfColumnsPerColumn);
    else
        carryOverStatic (old, target, halfColumnsPerColumn);
}

} // namespace mk::orlo
