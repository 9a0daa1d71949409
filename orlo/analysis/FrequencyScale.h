// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_events/juce_events.h>

#include <array>
#include <atomic>

namespace mk::orlo
{

/** Converts frequencies in hertz to vertical positions and back; no other code does so.

    A position runs from 0 (bottom, the lowest frequency shown) to 1 (top, the highest). The forward
    direction reads tables, since it runs for every point of every column; the inverse computes. The two
    agree within 1/3200, half a pixel of a picture 1600 pixels high, on every range that is at least a
    thousandth of its highest frequency wide; for narrower ranges single precision is too coarse for the
    frequencies. One exception: a log range that ends at or below 50 Hz is linear against 50 Hz and jumps to
    1 at its end, so the positions in between belong to no frequency of the range.

    Each instance has one owner thread that calls setRange() and positionForFrequency(). Any thread may
    read the range and the type and call frequencyForPosition(). An inverse of the log scale that is
    computed while the range changes may mix old and new values.
*/
class FrequencyScale final : private juce::AsyncUpdater
{
public:
    enum Type
    {
        linear = 0, /**< Proportional to hertz. */
        log,        /**< Octaves, with a linear band below 50 Hz. */
        mel,        /**< O'Shaughnessy (1987). */
        bark,       /**< Traunmueller (1990). */
        erb,        /**< ERB-rate, Glasberg and Moore (1990). */
        numTypes
    };

    struct Listener
    {
        virtual ~Listener() = default;

        /** [message thread] The range or the type has changed; several changes may come as one call. */
        virtual void frequencyScaleChanged (FrequencyScale&) = 0;
    };

    /** A linear scale from 0 to 20000 Hz. */
    FrequencyScale();
    ~FrequencyScale() override;

    //==============================================================================
    /** [owner thread] Sets the shown range, 0 <= minHz <= maxHz. A range equal to the current one within
        rounding is ignored. Any other range rebuilds the tables and notifies the listeners; it allocates
        only if the tables have never been as large before. */
    void setRange (float minHz, float maxHz);

    /** Any thread. Sets the Type and, if it has changed, notifies the listeners. */
    void setScaleType (int newType);

    [[nodiscard]] float getMinFrequency() const noexcept { return minFrequency.load (std::memory_order_relaxed); }
    [[nodiscard]] float getMaxFrequency() const noexcept { return maxFrequency.load (std::memory_order_relaxed); }
    [[nodiscard]] int getScaleType() const noexcept { return scaleType.load (std::memory_order_relaxed); }

    /** Entries in each of the tables: one for about every hertz, at least 1000. */
    [[nodiscard]] int getTableSize() const noexcept { return tableSize; }

    //==============================================================================
    /** [owner thread] Hertz to position 0 .. 1. */
    [[nodiscard]] float positionForFrequency (float hz) const noexcept { return getForwardMap() (hz); }

    /** Any thread. Position to hertz, clamped to the range; the linear scale extrapolates beyond it. */
    [[nodiscard]] float frequencyForPosition (float position) const noexcept;

    /** A snapshot of the forward direction, for converting many frequencies in a row. Valid on the owner
        thread until the next setRange(). */
    class ForwardMap
    {
    public:
        [[nodiscard]] float operator() (float hz) const noexcept
        {
            // Written so that a NaN counts as below the range.
            if (minHz >= maxHz || ! (hz > minHz))
                return 0.0f;

            if (hz >= maxHz)
                return 1.0f;

            if (table == nullptr)
                return 0.0f;

            // The low band of the log scale. Its slope changes at its upper end, which lies between table entries.
            if (hz < straightEnd)
                return (hz - minHz) * straightSlope;

            const auto x = (hz - tableStart) * entriesPerHertz;
            const auto index = int (x);

            if (index >= tableSize - 1)
                return 1.0f;

            // The table's ends lie beyond the range, so values interpolated from them may do so too.
            return juce::jlimit (0.0f, 1.0f, lerp (table[index], table[index + 1], x - float (index)));
        }

        /** Converts count frequencies at once, which is faster than one by one. The arrays must not overlap. */
        void convert (const float* hz, float* positions, size_t count) const noexcept;

    private:
        static constexpr size_t blockSize = 64;

        void convertBlock (const float* hz, float* positions, size_t count) const noexcept;

        /** std::lerp for a and b that are close together and t in 0 .. 1: exact at the ends and monotonic
            too, but without the branches for opposite signs. */
        [[nodiscard]] static float lerp (float a, float b, float t) noexcept
        {
            const auto x = a + t * (b - a);
            return b > a ? juce::jmin (x, b) : juce::jmax (x, b);
        }

        friend class FrequencyScale;
        float minHz, maxHz;
        float straightEnd, straightSlope; // up to this frequency the map is a straight line from the minimum
        float tableStart, entriesPerHertz;
        const float* table; // null for an unknown scale type
        int tableSize;
    };

    /** [owner thread] */
    [[nodiscard]] ForwardMap getForwardMap() const noexcept;

    //==============================================================================
    /** [message thread] */
    void addListener (Listener* listener) { listeners.add (listener); }
    void removeListener (Listener* listener) { listeners.remove (listener); }

    /** [message thread] Sends a pending notification at once. */
    void notifyListenersNow() { handleUpdateNowIfNeeded(); }

private:
    void handleAsyncUpdate() override;
    void updateLogState();
    void rebuildTables();

    juce::ListenerList<Listener> listeners;

    // Written by the owner thread (scaleType by any thread), read by any thread.
    std::atomic<float> minFrequency { 0.0f }, maxFrequency { 20000.0f };
    std::atomic<int> scaleType { linear };

    // Used by the owner thread only.
    int tableSize = 0;
    std::array<juce::Array<float>, numTypes> tables;

    // For the log scale. Written by the owner thread, read by any thread.
    std::atomic<bool> hasLowBand { false };
    std::atomic<float> lowBandFraction { 0.0f }; // share of the axis that the band below 50 Hz has
    std::atomic<float> lowBandFractionInverse { 1.0f };
    std::atomic<float> octaves { 0.0f }; // width of the logarithmic part
    std::atomic<float> octavesInverse { 1.0f };
};

} // namespace mk::orlo
