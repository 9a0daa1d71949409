// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColumnPacer.h"

#include <algorithm>
#include <utility>

namespace mk::orlo
{
namespace
{
// A tick after a long gap may have lasted for any time; there are never more frames than the ring's slots.
constexpr float longestTick = 64.0f;

// The weight of the past at each tick: the rate is that of the last second or two.
constexpr float memory = 0.99f;

// Rounding to whole frames makes up to a third more columns than the ticks ask for, and never visibly fewer.
// A rate beyond that was not measured on a steady flow.
constexpr float highestRate = 1.5f;

// Drawing slightly faster than columns arrive keeps the queue empty when they arrive evenly.
constexpr float lead = 1.005f;

// So many ticks' worth overdue cannot be drawn away fast enough. Together with what the present tick takes,
// three times its columns are waiting.
constexpr float ticksOverdueInPileUp = 2.0f;
} // namespace

ColumnPacer::Share ColumnPacer::next (float columnsPerTick, int numFramesReady, int framesPerColumn) noexcept
{
    // A duration that is not a number counts as none: it would stay in the sums.
    const auto tick = columnsPerTick > 0.0f ? std::min (columnsPerTick, longestTick) : 0.0f;
    const auto numComplete = numFramesReady / framesPerColumn;
    measureRate (tick, float (numFramesReady) / float (framesPerColumn));

    credit += tick * lead * getArrivalsPerColumn();
    const auto numDue = std::min (int (credit), numComplete);

    // Time that finds no frames is not made up for later, but for a column that is just being completed.
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
    // Nothing is known of when the first frames came, nor of what the first tick's duration refers to.
    if (std::exchange (isFirst, false))
        return;

    // Fewer than were left means that the queue has been emptied.
    arrived = arrived * memory + std::max (0.0f, columnsReady - columnsLeft);
    elapsed = elapsed * memory + columnsPerTick;
}

float ColumnPacer::getArrivalsPerColumn() const noexcept
{
    return elapsed > 0.0f ? std::clamp (arrived / elapsed, 1.0f, highestRate) : 1.0f;
}

int ColumnPacer::getNumOverdue() const noexcept
{
    // What was never drawn in all this time: the least that any of these ticks left.
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
