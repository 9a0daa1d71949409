// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrequencyScale.h"

#include "FrequencyFormulas.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
// Below this the log scale turns linear, so that a range may start at 0 Hz.
constexpr float lowBandTop = 50.0f;
constexpr int smallestTable = 1000;

/** (s (hz) - s (min)) / (s (max) - s (min)), within 0 .. 1. */
template <typename Formula>
[[nodiscard]] float forwardValue (Formula formula, float hz, float min, float max) noexcept
{
    const auto bottom = formula (min);
    return juce::jlimit (0.0f, 1.0f, (formula (hz) - bottom) / (formula (max) - bottom));
}

template <typename Formula, typename Inverse>
[[nodiscard]] float inverseValue (Formula formula, Inverse inverse, float position, float min, float max) noexcept
{
    const auto bottom = formula (min);
    return juce::jlimit (min, max, inverse (position * (formula (max) - bottom) + bottom));
}
} // namespace

FrequencyScale::FrequencyScale()
{
    updateLogState();
    rebuildTables();
}

FrequencyScale::~FrequencyScale() { cancelPendingUpdate(); }

//==============================================================================
void FrequencyScale::setRange (float minHz, float maxHz)
{
    if (juce::approximatelyEqual (minHz, getMinFrequency()) && juce::approximatelyEqual (maxHz, getMaxFrequency()))
        return;

    minFrequency.store (minHz, std::memory_order_relaxed);
    maxFrequency.store (maxHz, std::memory_order_relaxed);
    updateLogState();
    rebuildTables();
    triggerAsyncUpdate();
}

void FrequencyScale::setScaleType (int newType)
{
    if (scaleType.exchange (newType, std::memory_order_relaxed) != newType)
        triggerAsyncUpdate();
}

void FrequencyScale::handleAsyncUpdate()
{
    listeners.call ([this] (Listener& listener) { listener.frequencyScaleChanged (*this); });
}

//==============================================================================
void FrequencyScale::updateLogState()
{
    const auto min = getMinFrequency();
    const auto max = getMaxFrequency();

    const auto store = [this] (bool low, float fraction, float fractionInverse, float width, float widthInverse)
    {
        hasLowBand.store (low, std::memory_order_relaxed);
        lowBandFraction.store (fraction, std::memory_order_relaxed);
        lowBandFractionInverse.store (fractionInverse, std::memory_order_relaxed);
        octaves.store (width, std::memory_order_relaxed);
        octavesInverse.store (widthInverse, std::memory_order_relaxed);
    };

    if (max <= lowBandTop)
    {
        store (true, 1.0f, 1.0f, 0.0f, 0.0f);
        return;
    }

    const auto low = min < lowBandTop;
    const auto base = low ? lowBandTop : min;

    // The low band gets the height of its own octaves, but of one octave at the most.
    const auto lowOctaves =
        low ? juce::jmin (1.0f, std::log2 (min < lowBandTop * 0.5f ? 2.0f : lowBandTop / min)) : 0.0f;
    const auto width = std::log2 (max / base);
    const auto fraction = lowOctaves / (lowOctaves + width);

    store (low, low ? fraction : 0.0f, low ? 1.0f / fraction : 0.0f, width, width > 0.0f ? 1.0f / width : 0.0f);
}

void FrequencyScale::rebuildTables()
{
    const auto min = getMinFrequency();
    const auto max = getMaxFrequency();
    const auto lo = int (std::floor (min));
    const auto span = int (std::ceil (max)) - lo;

    tableSize = span < smallestTable ? smallestTable : span + 1;
    const auto step = float (span) / float (tableSize - 1);

    const auto low = hasLowBand.load (std::memory_order_relaxed);
    const auto fraction = lowBandFraction.load (std::memory_order_relaxed);
    const auto inverseWidth = octavesInverse.load (std::memory_order_relaxed);
    const auto base = low ? lowBandTop : min;

    const auto logValue = [=] (float hz)
    {
        return low && hz <= lowBandTop ? (hz - min) / (lowBandTop - min) * fraction
                                       : (1.0f - fraction) * std::log2 (hz / base) * inverseWidth + fraction;
    };

    const auto fill = [&] (Type type, auto&& valueOf)
    {
        auto& table = tables[type];
        table.resize (tableSize);

        for (int i = 0; i < tableSize; ++i)
        {
            const auto hz = float (i) * step + float (lo);
            table.setUnchecked (i, hz <= min ? 0.0f : hz >= max ? 1.0f : valueOf (hz));
        }
    };

    fill (linear, [=] (float hz) { return (hz - min) / (max - min); });
    fill (log, logValue);
    fill (mel, [=] (float hz) { return forwardValue (formulas::melFromHertz, hz, min, max); });
    fill (bark, [=] (float hz) { return forwardValue (formulas::barkFromHertz, hz, min, max); });
    fill (erb, [=] (float hz) { return forwardValue (formulas::erbFromHertz, hz, min, max); });
}

//==============================================================================
FrequencyScale::ForwardMap FrequencyScale::getForwardMap() const noexcept
{
    const auto type = getScaleType();

    ForwardMap map;
    map.minHz = getMinFrequency();
    map.maxHz = getMaxFrequency();
    map.entriesPerHertz = float (tableSize - 1) / (map.maxHz - map.minHz);
    map.table = juce::isPositiveAndBelow (type, int (numTypes)) ? tables[size_t (type)].data() : nullptr;
    map.tableSize = tableSize;
    return map;
}

float FrequencyScale::frequencyForPosition (float position) const noexcept
{
    const auto min = getMinFrequency();
    const auto max = getMaxFrequency();
    const auto type = getScaleType();

    if (type == linear)
        return position * (max - min) + min;

    if (! juce::isPositiveAndBelow (type, int (numTypes)))
        return 0.0f;

    if (position <= 0.0f)
        return min;

    if (position >= 1.0f)
        return max;

    switch (type)
    {
        case mel: return inverseValue (formulas::melFromHertz, formulas::hertzFromMel, position, min, max);
        case bark: return inverseValue (formulas::barkFromHertz, formulas::hertzFromBark, position, min, max);
        case erb: return inverseValue (formulas::erbFromHertz, formulas::hertzFromErb, position, min, max);
        default: break;
    }

    const auto low = hasLowBand.load (std::memory_order_relaxed);
    const auto fraction = lowBandFraction.load (std::memory_order_relaxed);

    if (low && position <= fraction)
        return (lowBandTop - min) * (position * lowBandFractionInverse.load (std::memory_order_relaxed)) + min;

    const auto width = octaves.load (std::memory_order_relaxed);
    return std::exp2 ((position - fraction) / (1.0f - fraction) * width) * (low ? lowBandTop : min);
}

} // namespace mk::orlo
