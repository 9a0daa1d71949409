// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectrogramImageBuilder.h"

#include "ColourTables.h"
#include "FFTProcessor.h"

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
        const auto tickCount = frameClock.tickCount.load (std::memory_order_acquire);
        const auto numTicks = tickCount - std::exchange (lastTickCount, tickCount);

        // Ticks that came while columns were being painted are taken to be as long as the newest one.
        if (numTicks == 0
            || ! processTick (float (numTicks) * frameClock.columnsPerTick.load (std::memory_order_relaxed)))
            wait (1.0);
    }
}

bool SpectrogramImageBuilder::processTick (float columnsPerTick)
{
    const auto framesEach = juce::jmax (1, framesPerColumn.load (std::memory_order_relaxed));
    const auto share = pacer.next (columnsPerTick, fftProcessor.getNumFramesReady(), framesEach);

    if (share.numColumns < 1)
        return false;

    applyScrollMode();
    applyRequestedSize();

    if (framesEach == 1 && share.numExtraFrames == 0)
        collectColumns (share.numColumns);
    else
        collectMergedColumns (share.numColumns * framesEach, framesEach, share.numExtraFrames > 0);

    if (outputColumns.empty())
        return false;

    paintAndPublish();
    return true;
}

void SpectrogramImageBuilder::applyScrollMode()
{
    const auto scroll = scrollMode.load (std::memory_order_relaxed);

    if (std::exchange (lastScrollMode, scroll) && ! scroll)
        ring.restart();
}

void SpectrogramImageBuilder::applyRequestedSize()
{
    const auto width = requestedWidth.load (std::memory_order_relaxed);
    const auto height = requestedHeight.load (std::memory_order_relaxed);

    if (width == currentWidth && height == currentHeight)
        return;

    currentWidth = width;
    currentHeight = height;

    if (width >= 1 && height >= 1)
        ring.resize (width, height, lastScrollMode);
}

//==============================================================================
void SpectrogramImageBuilder::collectColumns (int numColumns)
{
    outputColumns.resize (size_t (numColumns));

    for (auto& column : outputColumns)
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
    outputColumns.resize (size_t (numFrames));

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
            outputColumns[numColumns++] = mergeColumn;
            framesInColumn = 0;
        }
    }

    outputColumns.resize (numColumns);
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

void SpectrogramImageBuilder::paintAndPublish()
{
    const auto map = getColourMap();
    const auto crossed = floorDb.load (std::memory_order_relaxed) > ceilingDb.load (std::memory_order_relaxed);
    const auto zeroColour = crossed ? map->getPixels().getLast() : SpectrogramRing::background;

    ring.paint (outputColumns, *map, zeroColour, lastScrollMode);

    if (ring.getWidth() > 0)
    {
        ring.copyShownPart (exchange.getBack(), lastScrollMode);
        exchange.publish();
    }
}

} // namespace mk::orlo
