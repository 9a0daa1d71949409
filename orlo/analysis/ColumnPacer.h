// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

namespace mk::orlo
{

/** Decides at each tick of the display how many columns are drawn.

    Frames arrive in bursts, a host's block at a time, and ticks come at the display's rate, which is
    independent of the audio. The columns are spread evenly over the ticks. In the long run as many are drawn
    as arrive, at any display rate: fractions of a column are carried over, and if the audio makes more
    columns than the ticks ask for (because hop and frames per column are whole numbers and the two clocks
    are never equal), columns are drawn at the rate at which they arrive.

    Holds no frames. No allocation, no lock; one thread at a time.
*/
class ColumnPacer
{
public:
    struct Share
    {
        int numColumns = 0;     /**< To draw now. There are enough frames for all of them. */
        int numExtraFrames = 0; /**< 0 .. 2, to merge into these columns besides their own: frames pile up. */
    };

    /** The share of one tick.
        @param columnsPerTick   how long the tick lasted, in columns
        @param numFramesReady   how many frames wait; the caller must then pop those of the share
        @param framesPerColumn  at least 1 */
    [[nodiscard]] Share next (float columnsPerTick, int numFramesReady, int framesPerColumn) noexcept;

private:
    void measureRate (float columnsPerTick, float columnsReady) noexcept;
    [[nodiscard]] float getArrivalsPerColumn() const noexcept;
    [[nodiscard]] int getNumOverdue() const noexcept;
    void noteColumnsLeft (float numDrained, int numLeft) noexcept;

    // Columns that have waited for this many ticks are overdue: 0.16 s at 98 Hz to 0.53 s at 30 Hz, which is longer
    // than hosts' blocks, so that a burst that is still being spread out does not count.
    static constexpr std::size_t patience = 16;

    bool isFirst = true;
    float credit = 0.0f; // columns that are due, usually less than one

    // Exponentially decaying sums, both in columns: how many have arrived and how much time has passed.
    float arrived = 0.0f;
    float elapsed = 0.0f;

    float columnsLeft = 0.0f;                  // after the last tick, with fractions of a column
    std::array<float, patience> leftBehind {}; // whole columns that were left after recent ticks and still wait
    std::size_t nextTick = 0;
};

} // namespace mk::orlo
