// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnPacer.h"

#include <algorithm>
#include <utility>

namespace mk::orlo
{
namespace
{
// A tick after a long gap may be of any length, but there are never more frames than the ring has slots.
constexpr float longestTick = 64.0f;

// The decay of the sums at each tick, with which the rate is an average over the last one or two seconds.
constexpr float memory = 0.99f;

// Rounding to whole frames makes up to a third more columns than the ticks ask for, and never visibly fewer.
// A higher rate means that the frames did not arrive steadily while it was measured.
constexpr float highestRate = 1.5f;

// Drawing slightly faster than columns arrive keeps the queue empty when they arrive evenly.
constexpr float lead = 1.005f;

// With this many ticks' worth of columns overdue, drawing at twice the speed is too slow. Together with those of
// the current tick, three times its columns are waiting.
constexpr float ticksOverdueInPileUp = 2.0f;
} // namespace

ColumnPacer::Share ColumnPacer::next (float columnsPerTick, int numFramesReady, int framesPerColumn) noexcept
{
    // A NaN would stay in the sums, so it counts as a duration of 0.
    const auto tick = columnsPerTick > 0.0f ? std::min (columnsPerTick, longestTick) : 0.0f;
    const auto numComplete = numFramesReady / framesPerColumn;
    measureRate (tick, float (numFramesReady) / float (framesPerColumn));

    credit += tick * lead * getArrivalsPerColumn();
    const auto numDue = std::min (int (credit), numComplete);

    // Ticks without enough frames are not made up for later, except for one column that may be nearly complete.
    credit = std::min (credit - float (numDue), 1.0f);

    // Overdue columns are drawn at twice the normal speed at most.
    const auto numOverdue = getNumOverdue();
    const auto numDrained = std::min ({ numOverdue, std::max (1, int (tick)), numComplete - numDue });

    Share share;
    share.numColumns = numDue + numDrained;
    const auto numFrames = share.numColumns * framesPerColumn;

    if (numFrames > 0 && float (numOverdue) >= ticksOverdueInPileUp * std::max (1.0f, tick))
        share.numExtraFrames = std::min (numFrames > 1 ? 2 : 1, numFramesReady - numFrames);

    const auto numFramesLeft = numFramesReady - numFrames - share.numExtraFrames;
    columnsLeft = float (numFramesLeft) / float (framesPerColumn);
    noteColumnsLeft (float (numDrained) + float (share.numExtraFrames) / float (framesPerColumn),
                     numFramesLeft / framesPerColumn);
    return share;
}

void ColumnPacer::measureRate (float columnsPerTick, float columnsReady) noexcept
{
    // It is unknown when the first frames arrived and when the first tick began, so they are not measured.
    if (std::exchange (isFirst, false))
        return;

    // Fewer columns than were left after the last tick mean that the queue has been discarded.
    arrived = arrived * memory + std::max (0.0f, columnsReady - columnsLeft);
    elapsed = elapsed * memory + columnsPerTick;
}

float ColumnPacer::getArrivalsPerColumn() const noexcept
{
    return elapsed > 0.0f ? std::clamp (arrived / elapsed, 1.0f, highestRate) : 1.0f;
}

int ColumnPacer::getNumOverdue() const noexcept
{
    // The smallest number that any of these ticks left behind has waited for all of them.
    return int (*std::min_element (leftBehind.begin(), leftBehind.end()));
}

void ColumnPacer::noteColumnsLeft (float numDrained, int numLeft) noexcept
{
    for (auto& numBehind : leftBehind)
        numBehind = std::max (0.0f, numBehind - numDrained);

    leftBehind[nextTick] = float (numLeft);
    nextTick = (nextTick + 1) % patience;
}

} // namespace mk::orlo
