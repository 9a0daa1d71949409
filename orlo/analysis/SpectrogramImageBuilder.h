// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColumnExchange.h"
#include "ColumnMapper.h"
#include "ColumnPacer.h"
#include "FrameClock.h"
#include "FrequencyScale.h"
#include "SpectrogramRing.h"

#include <juce_core/juce_core.h>

namespace mk::orlo
{

class FFTProcessor;

/** Turns the worker's frames into the picture, at the rate of the display's ticks.

    For every tick it takes the frames that are due (see ColumnPacer), maps them to columns and hands these over to
    the message thread, which paints them into the picture when it fetches them. So the picture has one owner, and
    nothing but new columns goes from thread to thread. The thread "ima" sleeps until notify() is called at a tick
    that is due, and calls processTick(), which tools, tests and benchmarks may call directly if the thread is not
    started.
*/
class SpectrogramImageBuilder final : public juce::Thread
{
public:
    /** Both must outlive the builder. The thread is not started. */
    SpectrogramImageBuilder (FFTProcessor& fftProcessor, const FrameClock& frameClock);

    /** Stops the thread, within a second. */
    ~SpectrogramImageBuilder() override;

    //==============================================================================
    /** [message thread] The picture's size in pixels, both at least 1; applied with the next columns. */
    void setRequestedSize (int width, int height) noexcept;

    /** Any thread. The size that was last requested, 0 by 0 before that. */
    [[nodiscard]] juce::Point<int> getRequestedSize() const noexcept
    {
        return { requestedWidth.load (std::memory_order_relaxed), requestedHeight.load (std::memory_order_relaxed) };
    }

    /** [message thread] How many frames are merged into one column, at least 1. */
    void setFramesPerColumn (int numFrames) noexcept { framesPerColumn.store (numFrames, std::memory_order_relaxed); }

    /** Any thread. Whether enough frames wait for a column. If not, a tick need not wake the builder. */
    [[nodiscard]] bool isColumnReady() const noexcept;

    /** [message thread] The levels of 0 and of 1, in decibels; a floor above the ceiling inverts the picture. */
    void setLevelRange (float newFloorDb, float newCeilingDb) noexcept;

    /** [message thread] The shown range, each as a share 0 .. 1 of half the sample rate. */
    void setMinFreqFraction (float fraction) noexcept { minFreqFraction.store (fraction, std::memory_order_relaxed); }
    void setMaxFreqFraction (float fraction) noexcept { maxFreqFraction.store (fraction, std::memory_order_relaxed); }

    /** [message thread] Scroll when true, Static when false. */
    void setScrollMode (bool shouldScroll) noexcept { scrollMode.store (shouldScroll, std::memory_order_relaxed); }

    /** [message thread] Uses another colour map for the next columns; an index of 46 or more means 0.
        Does nothing if the map in use has that index already. Allocates. */
    void setColourMap (int mapIndex);

    /** Any thread. */
    [[nodiscard]] std::shared_ptr<const ColourMap> getColourMap() const noexcept
    {
        return std::atomic_load (&colourMap);
    }

    //==============================================================================
    /** [message thread] Paints the columns that have been handed over into the picture, and returns what has changed in
        it since the last call. The picture survives a stop of the thread. */
    [[nodiscard]] ChangedColumns fetchColumns();

    /** [message thread] The picture as of the last fetchColumns(); its width is 0 before the first column. */
    [[nodiscard]] const SpectrogramRing& getPicture() const noexcept { return picture; }

    /** [message thread] Whether the picture shows the newest columns of its ring; else it shows one half. */
    [[nodiscard]] bool isPictureScrolling() const noexcept { return isScrolling; }

    /** The scale of the rows. Its owner is the builder thread; any thread may call its inverse. */
    [[nodiscard]] FrequencyScale& getFrequencyScale() noexcept { return frequencyScale; }

    //==============================================================================
    /** [builder, or any thread while the builder's is not started] One tick that lasted the given number of
        columns. True if columns were handed over. */
    bool processTick (float columnsPerTick);

    /** [builder, or any thread while the builder's is not started] Ticks of the given length, each, at which
        isColumnReady() was false. */
    void skipTicks (std::uint64_t numTicks, float columnsPerTick) noexcept;

    /** [builder, or any thread while the builder's is not started] Makes the next column from the next frame, with
        the frame's own format and the current levels, range and scale; see ColumnMapper. */
    void frameToColumn (const Frame& frame, Column& column);

    /** [builder, or any thread while the builder's is not started] Makes columns of the requested size from now on,
        without waiting for the next tick. */
    void applyRequestedSize() noexcept;

    void run() override;

private:
    [[nodiscard]] ShownRange getShownRange() const noexcept;
    void collectColumns (int numColumns);
    void collectMergedColumns (int numFrames, int framesInEachColumn, bool catchUp);
    bool mergeNextFrame();
    void handOver();
    void paint (const ColumnBatch& batch);

    FrequencyScale frequencyScale;
    FFTProcessor& fftProcessor;
    const FrameClock& frameClock;

    // Written by the message thread, read by the builder.
    std::atomic<int> framesPerColumn { 1 };
    std::atomic<float> floorDb { 1.0e-7f }, ceilingDb { 0.0f };
    std::atomic<float> minFreqFraction { 0.0f }, maxFreqFraction { 0.0f };
    std::atomic<bool> scrollMode { false };
    std::atomic<int> requestedWidth { 0 }, requestedHeight { 0 };

    // Replaced by the message thread, copied by the builder; accessed only by the atomic functions of shared_ptr.
    std::shared_ptr<const ColourMap> colourMap = std::make_shared<const ColourMap> (0u);

    // Used by the builder only.
    std::uint64_t lastDueCount = 0, lastSkippedCount = 0;
    ColumnPacer pacer;
    int framesLeft = 0; // after the last tick
    int currentWidth = 0, currentHeight = 0;
    ColumnMapper mapper;
    Frame frameBuffer;
    ColumnBatch output; // finished in this tick
    Column mergeColumn, tempColumn;
    int framesInColumn = 0; // merged into mergeColumn so far

    ColumnExchange exchange;

    // Used by the message thread only.
    SpectrogramRing picture;
    bool isScrolling = false;

    JUCE_DECLARE_NON_COPYABLE (SpectrogramImageBuilder)
};

} // namespace mk::orlo
