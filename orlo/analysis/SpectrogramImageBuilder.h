// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColumnMapper.h"
#include "ColumnPacer.h"
#include "FrameClock.h"
#include "FrequencyScale.h"
#include "SnapshotExchange.h"
#include "SpectrogramRing.h"

#include <juce_core/juce_core.h>

namespace mk::orlo
{

class FFTProcessor;

/** Turns the worker's frames into the picture, at the rate of the display's ticks.

    For every tick it takes the frames that are due (see ColumnPacer), maps them to columns, paints these
    into a ring image and publishes a snapshot of the part that is shown. The thread "ima" only waits for
    ticks and calls processTick(), which tools, tests and benchmarks may call directly if the thread is
    not started.
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

    /** [message thread] How many frames are merged into one column, at least 1. */
    void setFramesPerColumn (int numFrames) noexcept { framesPerColumn.store (numFrames, std::memory_order_relaxed); }

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
    /** [message thread] The newest picture, null before the first. Valid until the next call. */
    [[nodiscard]] const juce::Image& getFrontImage() noexcept { return exchange.getFront(); }

    /** The scale of the rows. Its owner is the builder thread; any thread may call its inverse. */
    [[nodiscard]] FrequencyScale& getFrequencyScale() noexcept { return frequencyScale; }

    //==============================================================================
    /** [builder, or any thread while the builder's is not started] One tick that lasted the given number of
        columns. True if columns were painted and a picture published. */
    bool processTick (float columnsPerTick);

    /** [builder, or any thread while the builder's is not started] Makes the next column from the next frame, with
        the frame's own format and the current levels, range and scale; see ColumnMapper. */
    void frameToColumn (const Frame& frame, Column& column);

    /** [builder, or any thread while the builder's is not started] Applies the requested size at once,
        without waiting for the next columns. */
    void applyRequestedSize();

    void run() override;

    /** For tests: the columns painted so far. Only while the thread is not started. */
    [[nodiscard]] const SpectrogramRing& getRing() const noexcept { return ring; }

private:
    [[nodiscard]] ShownRange getShownRange() const noexcept;
    void applyScrollMode();
    void collectColumns (int numColumns);
    void collectMergedColumns (int numFrames, int framesInEachColumn, bool catchUp);
    bool mergeNextFrame();
    void paintAndPublish();

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
    std::uint64_t lastTickCount = 0;
    ColumnPacer pacer;
    bool lastScrollMode = false;
    int currentWidth = 0, currentHeight = 0;
    ColumnMapper mapper;
    Frame frameBuffer;
    std::vector<Column> outputColumns; // finished in this tick
    Column mergeColumn, tempColumn;
    int framesInColumn = 0; // merged into mergeColumn so far
    SpectrogramRing ring;

    SnapshotExchange exchange;

    JUCE_DECLARE_NON_COPYABLE (SpectrogramImageBuilder)
};

} // namespace mk::orlo
