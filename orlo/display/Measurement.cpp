// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Measurement.h"

#include "PointText.h"

#include "orlo/stills/HistorySource.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
[[nodiscard]] int toPixel (float share, int size) noexcept
{
    return std::clamp (int (std::floor (share * float (size))), 0, size - 1);
}

/** A place without a pixel has exactly the frequency and the time that it lies at. */
[[nodiscard]] StillPoint
    getPointAt (const StillPicture& picture, const FrequencyScale& scale, const Measurement::Place& place)
{
    const auto& request = picture.getRequest();
    auto point = getStillPoint (
        picture, scale, { toPixel (place.share.x, picture.getWidth()), toPixel (place.share.y, picture.getHeight()) });
    point.hertz = double (scale.frequencyForPosition (1.0f - std::clamp (place.share.y, 0.0f, 1.0f)));
    point.sample = request.start + double (std::clamp (place.share.x, 0.0f, 1.0f)) * request.length;
    return point;
}

[[nodiscard]] StillPoint
    measureAt (const StillPicture& picture, const FrequencyScale& scale, const Measurement::Place& place)
{
    const auto found =
        place.snaps ? findStrongestPoint (
            picture,
            scale,
            { toPixel (place.share.x, picture.getWidth()), toPixel (place.share.y, picture.getHeight()) },
            juce::roundToInt (float (Measurement::snapRadius) * place.pixelsPerUnit))
                    : std::nullopt;

    if (! found)
        return getPointAt (picture, scale, place);

    try
    {
        return refineStillPoint (picture, *found);
    }
    catch (const SoundOverwritten&)
    {
        return *found;
    }
}

[[nodiscard]] MeasuredPoint describePoint (const StillPoint& point, double soundEnd, double sampleRate) noexcept
{
    return { point.hertz, (point.sample - soundEnd) / sampleRate, point.decibels };
}
} // namespace

void Measurement::begin (const StillPicture& picture, const FrequencyScale& scale, const Place& place)
{
    const auto& request = picture.getRequest();
    sampleRate = request.hop.sampleRate;
    timeDecimals = getTimeDecimals (request.getSamplesPerPixel() / sampleRate);
    first = measureAt (picture, scale, place);
    second = std::nullopt;
}

void Measurement::extend (const StillPicture& picture, const FrequencyScale& scale, const Place& place)
{
    if (! first)
    {
        begin (picture, scale, place);
        return;
    }

    second = measureAt (picture, scale, place);

    if (second->x == first->x && second->y == first->y)
        second = std::nullopt;
}

void Measurement::clear() noexcept
{
    first = std::nullopt;
    second = std::nullopt;
}

juce::String Measurement::getText (const notes::Tuning& tuning, double soundEnd) const
{
    if (! first)
        return {};

    const auto start = describePoint (*first, soundEnd, sampleRate);
    return second ? formatDifference (start, describePoint (*second, soundEnd, sampleRate), timeDecimals)
                  : formatPoint (start, tuning, timeDecimals);
}

} // namespace mk::orlo
