// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrequencyScale.h"

#include "FrequencyFormulas.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
// Below this frequency in hertz the log scale is linear, so that a range may start at 0 Hz.
constexpr float lowBandTop = 50.0f;
constexpr int smallestTable = 1000;

/** The first and the last frequency of the tables, in whole hertz. */
[[nodiscard]] int getTableStart (float minHz) noexcept { return int (std::floor (minHz)); }
[[nodiscard]] int getTableEnd (float maxHz) noexcept { return int (std::ceil (maxHz)); }

/** (s (hz) - s (min)) / (s (max) - s (min)) as a function of hz. */
template <typename Formula>
[[nodiscard]] auto makeForwardMap (Formula formula, double min, double max) noexcept
{
    const auto bottom = formula (min);
    return [=, scale = 1.0 / (formula (max) - bottom)] (double hz) { return (formula (hz) - bottom) * scale; };
}

template <typename Formula, typename Inverse>
[[nodiscard]] float inverseValue (Formula formula, Inverse inverse, float position, float min, float max) noexcept
{
    const auto bottom = formula (double (min));
    const auto hz = inverse (double (position) * (formula (double (max)) - bottom) + bottom);
    return juce::jlimit (min, max, float (hz));
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

    // The low band is as high as the octaves that it covers, but at most one octave.
    const auto lowOctaves =
        low ? juce::jmin (1.0, min < lowBandTop * 0.5f ? 1.0 : std::log2 (double (lowBandTop) / double (min))) : 0.0;
    const auto width = std::log2 (double (max) / double (base));
    const auto fraction = lowOctaves / (lowOctaves + width);

    store (low,
           low ? float (fraction) : 0.0f,
           low ? float (1.0 / fraction) : 0.0f,
           float (width),
           width > 0.0 ? float (1.0 / width) : 0.0f);
}

void FrequencyScale::rebuildTables()
{
    const auto min = double (getMinFrequency());
    const auto max = double (getMaxFrequency());
    const auto start = getTableStart (getMinFrequency());
    const auto span = getTableEnd (getMaxFrequency()) - start;

    tableSize = span < smallestTable ? smallestTable : span + 1;
    const auto step = double (span) / double (tableSize - 1);

    // The first and the last entry lie up to a hertz beyond the range. The formulas are valid there too, so the
    // values interpolated within the range are correct.
    const auto fill = [&] (Type type, auto&& valueOf)
    {
        auto& table = tables[type];
        table.resize (tableSize);

        for (int i = 0; i < tableSize; ++i)
            table.setUnchecked (i, float (valueOf (i * step + start)));
    };

    fill (linear, makeForwardMap ([] (double hz) { return hz; }, min, max));
    fill (mel, makeForwardMap (formulas::melFromHertz, min, max));
    fill (bark, makeForwardMap (formulas::barkFromHertz, min, max));
    fill (erb, makeForwardMap (formulas::erbFromHertz, min, max));

    // This table is used only above the low band, for which getForwardMap() has a straight line. Of the entries
    // in the low band only the one next to its upper end is read, to interpolate from.
    const auto fraction = double (lowBandFraction.load (std::memory_order_relaxed));
    const auto inverseWidth = double (octavesInverse.load (std::memory_order_relaxed));
    const auto base = hasLowBand.load (std::memory_order_relaxed) ? double (lowBandTop) : min;
    fill (log,
          [=] (double hz)
          { return (1.0 - fraction) * std::log2 (juce::jmax (1.0, hz) / base) * inverseWidth + fraction; });
}

//==============================================================================
FrequencyScale::ForwardMap FrequencyScale::getForwardMap() const noexcept
{
    const auto type = getScaleType();

    ForwardMap map;
    map.minHz = getMinFrequency();
    map.maxHz = getMaxFrequency();
    map.tableStart = float (getTableStart (map.minHz));
    map.entriesPerHertz = float (tableSize - 1) / (float (getTableEnd (map.maxHz)) - map.tableStart);
    map.table = juce::isPositiveAndBelow (type, int (numTypes)) ? tables[size_t (type)].data() : nullptr;
    map.tableSize = tableSize;

    const auto low = type == log && hasLowBand.load (std::memory_order_relaxed);
    map.straightEnd = low ? lowBandTop : map.minHz;
    map.straightSlope = low ? lowBandFraction.load (std::memory_order_relaxed) / (lowBandTop - map.minHz) : 0.0f;
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

    const auto width = double (octaves.load (std::memory_order_relaxed));
    const auto base = double (low ? lowBandTop : min);
    return float (std::exp2 ((double (position) - double (fraction)) / (1.0 - double (fraction)) * width) * base);
}

} // namespace mk::orlo
