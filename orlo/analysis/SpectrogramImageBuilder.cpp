// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramImageBuilder.h"

#include "ColourTables.h"
#include "FFTProcessor.h"

#include <tuple>

namespace mk::orlo
{
namespace
{
void mergeMaximum (Column& target, const Column& other) noexcept
{
    juce::FloatVectorOperations::max (target.data(), target.data(), other.data(), int (target.size()));
}
} // namespace

SpectrogramImageBuilder::SpectrogramImageBuilder (FFTProcessor& processor, const FrameClock& clock)
    : juce::Thread ("ima"), fftProcessor (processor), frameClock (clock)
{
}

SpectrogramImageBuilder::~SpectrogramImageBuilder() { stopThread (1000); }

//==============================================================================
void SpectrogramImageBuilder::setRequestedSize (int width, int height) noexcept
{
    requestedWidth.store (width, std::memory_order_relaxed);
    requestedHeight.store (height, std::memory_order_relaxed);
}

void SpectrogramImageBuilder::setLevelRange (float newFloorDb, float newCeilingDb) noexcept
{
    floorDb.store (newFloorDb, std::memory_order_relaxed);
    ceilingDb.store (newCeilingDb, std::memory_order_relaxed);
}

void SpectrogramImageBuilder::setColourMap (int mapIndex)
{
    const auto index = juce::isPositiveAndBelow (mapIndex, int (colourTables::numMaps)) ? unsigned (mapIndex) : 0u;

    if (getColourMap()->getMapIndex() != index)
        std::atomic_store (&colourMap, std::make_shared<const ColourMap> (index));
}

//==============================================================================
void SpectrogramImageBuilder::run()
{
    while (! threadShouldExit())
    {
        const auto dueCount = frameClock.dueCount.load (std::memory_order_acquire);
        const auto numDue = dueCount - std::exchange (lastDueCount, dueCount);

        if (numDue == 0)
        {
            wait (-1.0);
            continue;
        }

        // Ticks that were missed are taken to be as long as the newest one.
        const auto columnsPerTick = frameClock.columnsPerTick.load (std::memory_order_relaxed);
        const auto tickCount = frameClock.tickCount.load (std::memory_order_relaxed);
        const auto skippedCount = juce::jmax (lastSkippedCount, tickCount - dueCount);
        skipTicks (skippedCount - std::exchange (lastSkippedCount, skippedCount), columnsPerTick);
        processTick (float (numDue) * columnsPerTick);
    }
}

bool SpectrogramImageBuilder::isColumnReady() const noexcept
{
    return fftProcessor.getNumFramesReady() >= juce::jmax (1, framesPerColumn.load (std::memory_order_relaxed));
}

void SpectrogramImageBuilder::skipTicks (std::uint64_t numTicks, float columnsPerTick) noexcept
{
    // The pacer's averages no longer change after that many ticks without columns.
    constexpr std::uint64_t longestMemory = 1024;
    const auto framesEach = juce::jmax (1, framesPerColumn.load (std::memory_order_relaxed));
    const auto numReady = juce::jmin (framesLeft, framesEach - 1);

    for (auto left = juce::jmin (numTicks, longestMemory); left > 0; --left)
        std::ignore = pacer.next (columnsPerTick, numReady, framesEach);
}

bool SpectrogramImageBuilder::processTick (float columnsPerTick)
{
    const auto framesEach = juce::jmax (1, framesPerColumn.load (std::memory_order_relaxed));
    const auto numReady = fftProcessor.getNumFramesReady();
    const auto share = pacer.next (columnsPerTick, numReady, framesEach);
    framesLeft = numReady - share.numColumns * framesEach - share.numExtraFrames;

    if (share.numColumns < 1)
        return false;

    applyRequestedSize();

    if (framesEach == 1 && share.numExtraFrames == 0)
        collectColumns (share.numColumns);
    else
        collectMergedColumns (share.numColumns * framesEach, framesEach, share.numExtraFrames > 0);

    if (output.columns.empty())
        return false;

    handOver();
    return true;
}

void SpectrogramImageBuilder::applyRequestedSize() noexcept
{
    currentWidth = requestedWidth.load (std::memory_order_relaxed);
    currentHeight = requestedHeight.load (std::memory_order_relaxed);
}

//==============================================================================
void SpectrogramImageBuilder::collectColumns (int numColumns)
{
    output.columns.resize (size_t (numColumns));

    for (auto& column : output.columns)
    {
        column.assign (size_t (currentHeight), 0.0f);

        if (fftProcessor.popFrame (frameBuffer))
            frameToColumn (frameBuffer, column);
    }
}

void SpectrogramImageBuilder::collectMergedColumns (int numFrames, int framesInEachColumn, bool catchUp)
{
    mergeColumn.resize (size_t (currentHeight));
    tempColumn.resize (size_t (currentHeight));
    output.columns.resize (size_t (numFrames));

    size_t numColumns = 0;

    for (int turn = 0; turn < numFrames; ++turn)
    {
        if (! mergeNextFrame())
            continue;

        ++framesInColumn;

        // Surplus frames are merged into columns that are drawn anyway, so that their peaks are not lost.
        if (catchUp && (turn == 0 || turn == numFrames / 2))
            mergeNextFrame();

        if (framesInColumn >= framesInEachColumn)
        {
            output.columns[numColumns++] = mergeColumn;
            framesInColumn = 0;
        }
    }

    output.columns.resize (numColumns);
}

bool SpectrogramImageBuilder::mergeNextFrame()
{
    if (! fftProcessor.popFrame (frameBuffer))
        return false;

    if (framesInColumn == 0)
    {
        frameToColumn (frameBuffer, mergeColumn);
    }
    else
    {
        frameToColumn (frameBuffer, tempColumn);
        mergeMaximum (mergeColumn, tempColumn);
    }

    return true;
}

ShownRange SpectrogramImageBuilder::getShownRange() const noexcept
{
    return { minFreqFraction.load (std::memory_order_relaxed),
             maxFreqFraction.load (std::memory_order_relaxed),
             floorDb.load (std::memory_order_relaxed),
             ceilingDb.load (std::memory_order_relaxed),
             currentHeight };
}

void SpectrogramImageBuilder::frameToColumn (const Frame& frame, Column& column)
{
    mapper.map (frame, makeColumnSettings (frame.format, getShownRange()), frequencyScale, column);
}

void SpectrogramImageBuilder::handOver()
{
    output.map = getColourMap();
    const auto crossed = floorDb.load (std::memory_order_relaxed) > ceilingDb.load (std::memory_order_relaxed);
    output.zeroColour = crossed ? output.map->getPixels().getLast() : SpectrogramRing::background;
    output.width = currentWidth;
    output.height = currentHeight;
    output.scroll = scrollMode.load (std::memory_order_relaxed);
    exchange.push (output);
}

//==============================================================================
ChangedColumns SpectrogramImageBuilder::fetchColumns()
{
    exchange.takeAll ([this] (const ColumnBatch& batch) { paint (batch); });
    return picture.takeChanges();
}

void SpectrogramImageBuilder::paint (const ColumnBatch& batch)
{
    if (std::exchange (isScrolling, batch.scroll) && ! batch.scroll)
        picture.restart();

    if (batch.width >= 1 && batch.height >= 1
        && (batch.width != picture.getWidth() || batch.height != picture.getHeight()))
        picture.resize (batch.width, batch.height, batch.scroll);

    picture.paint (batch.columns, *batch.map, batch.zeroColour, batch.scroll);
}

} // namespace mk::orlo
