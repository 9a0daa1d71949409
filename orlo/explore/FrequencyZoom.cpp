// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrequencyZoom.h"

#include "orlo/analysis/FrequencyFormulas.h"
#include "orlo/analysis/FrequencyScale.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
// Narrower ranges are too coarse for the scale's single precision.
constexpr double narrowestShareOfTop = 0.004;

// As in FrequencyScale: the log scale is straight below this frequency, over one octave's height.
constexpr double straightBandTop = 50.0;

/** Proportional to the height on the scale. */
[[nodiscard]] double heightOf (int type, double hz) noexcept
{
    switch (type)
    {
        case FrequencyScale::log:
            return hz < straightBandTop ? hz / straightBandTop - 1.0 : std::log2 (hz / straightBandTop);
        case FrequencyScale::mel: return formulas::melFromHertz (hz);
        case FrequencyScale::bark: return formulas::barkFromHertz (hz);
        case FrequencyScale::erb: return formulas::erbFromHertz (hz);
        default: return hz;
    }
}

[[nodiscard]] double frequencyAt (int type, double height) noexcept
{
    switch (type)
    {
        case FrequencyScale::log:
            return height < 0.0 ? (height + 1.0) * straightBandTop : std::exp2 (height) * straightBandTop;
        case FrequencyScale::mel: return formulas::hertzFromMel (height);
        case FrequencyScale::bark: return formulas::hertzFromBark (height);
        case FrequencyScale::erb: return formulas::hertzFromErb (height);
        default: return height;
    }
}

/** A range of heights on the scale, and the scale's ends. */
struct Heights
{
    Heights (FrequencyRange range, int type, double nyquist) noexcept
        : bottom (heightOf (type, 0.0)),
          top (heightOf (type, nyquist)),
          low (heightOf (type, std::clamp (range.min, 0.0, 1.0) * nyquist)),
          high (heightOf (type, std::clamp (range.max, 0.0, 1.0) * nyquist))
    {
    }

    [[nodiscard]] FrequencyRange makeRange (int type, double nyquist, double newLow, double height) const noexcept
    {
        const auto limited = std::min (height, top - bottom);
        const auto start = std::clamp (newLow, bottom, std::max (bottom, top - limited));

        return { std::clamp (frequencyAt (type, start) / nyquist, 0.0, 1.0),
                 std::clamp (frequencyAt (type, start + limited) / nyquist, 0.0, 1.0) };
    }

    double bottom, top, low, high;
};
} // namespace

FrequencyRange zoomFrequencies (FrequencyRange range, int type, double nyquist, double position, double factor) noexcept
{
    if (! (factor > 0.0) || ! (nyquist > 0.0))
        return range;

    const Heights heights (range, type, nyquist);
    const auto point = heights.low + position * (heights.high - heights.low);
    const auto height = (heights.high - heights.low) * factor;
    const auto zoomed = heights.makeRange (type, nyquist, point - position * height, height);
    const auto isTooNarrow = zoomed.max - zoomed.min < narrowestShareOfTop * zoomed.max;

    return isTooNarrow && factor < 1.0 ? range : zoomed;
}

FrequencyRange moveFrequencies (FrequencyRange range, int type, double nyquist, double share) noexcept
{
    if (! (nyquist > 0.0))
        return range;

    const Heights heights (range, type, nyquist);
    const auto height = heights.high - heights.low;
    return heights.makeRange (type, nyquist, heights.low + share * height, height);
}

} // namespace mk::orlo
