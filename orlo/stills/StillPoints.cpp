// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillPoints.h"

#include "ReassignedPoints.h"
#include "StillPlan.h"
#include "StillScales.h"

#include "orlo/analysis/Decibels.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
// More windows would not make the figure better, and zoomed out a column can have thousands.
constexpr int mostWindows = 16;

// A point of another window can be louder or quieter than the one that the picture shows, but hardly by more.
constexpr float largestDifference = 3.0f;

[[nodiscard]] juce::Point<int> limitToPicture (const StillPicture& picture, juce::Point<int> pixel) noexcept
{
    return { std::clamp (pixel.x, 0, picture.getWidth() - 1), std::clamp (pixel.y, 0, picture.getHeight() - 1) };
}

[[nodiscard]] int getSquare (int value) noexcept { return value * value; }
} // namespace

double getFrequencyOfRow (const FrequencyScale& scale, double row, int numRows) noexcept
{
    // Rows are the nearest to a position times the number of the last row.
    const auto position = numRows > 1 ? 1.0 - row / double (numRows - 1) : 0.5;
    return double (scale.frequencyForPosition (float (std::clamp (position, 0.0, 1.0))));
}

StillPoint getStillPoint (const StillPicture& picture, const FrequencyScale& scale, juce::Point<int> pixel) noexcept
{
    const auto [x, y] = limitToPicture (picture, pixel);
    const auto& request = picture.getRequest();

    return { x,
             y,
             getFrequencyOfRow (scale, double (y), picture.getHeight()),
             request.start + (double (x) + 0.5) * request.getSamplesPerPixel(),
             picture.getDecibels (x, y) };
}

std::optional<StillPoint> findStrongestPoint (const StillPicture& picture,
                                              const FrequencyScale& scale,
                                              juce::Point<int> pixel,
                                              int radius) noexcept
{
    auto best = limitToPicture (picture, pixel);
    auto loudest = silenceDb;
    auto shortest = 0;

    for (int y = std::max (0, pixel.y - radius); y <= std::min (picture.getHeight() - 1, pixel.y + radius); ++y)
        for (int x = std::max (0, pixel.x - radius); x <= std::min (picture.getWidth() - 1, pixel.x + radius); ++x)
        {
            const auto distance = getSquare (x - pixel.x) + getSquare (y - pixel.y);
            const auto decibels = picture.getDecibels (x, y);

            if (distance > getSquare (radius) || ! (decibels >= loudest) || ! (decibels > silenceDb)
                || (decibels <= loudest && distance >= shortest))
                continue;

            best = { x, y };
            loudest = decibels;
            shortest = distance;
        }

    if (! (loudest > silenceDb))
        return std::nullopt;

    return getStillPoint (picture, scale, best);
}

StillPoint refineStillPoint (const StillPicture& picture, const StillPoint& point)
{
    const auto& request = picture.getRequest();
    const auto plan = makeStillPlan (request);
    const auto perPixel = request.getSamplesPerPixel();
    const auto scale = makeStillScale (request);
    const auto numRows = picture.getHeight();

    // The bounds of the pixel, with half of a neighbour on each side: what is in it has been rounded.
    const auto row = double (point.y);
    auto lowest = getFrequencyOfRow (*scale, row + 1.0, numRows);
    auto highest = getFrequencyOfRow (*scale, row - 1.0, numRows);
    const auto binWidth = request.hop.sampleRate / double (request.hop.windowSize);

    if (! request.hop.enhanced)
    {
        // The bins of a tone are as wide as the window makes them, but its points are where it is.
        lowest = std::min (lowest, point.hertz - 2.0 * binWidth);
        highest = std::max (highest, point.hertz + 2.0 * binWidth);
    }

    const auto numWindows = std::clamp (int (perPixel), 1, std::min (mostWindows, plan.framesPerColumn));
    const auto reach = std::max (perPixel, request.hop.enhanced ? 1.0 : double (plan.getHalf()));
    auto refined = point;
    auto found = false;
    auto loudest = point.decibels - largestDifference;
    ReassignedPoints points (request);

    for (int i = 0; i < numWindows; ++i)
    {
        const auto share = (double (i) + 0.5) / double (numWindows) - 0.5;
        points.analyse (std::int64_t (std::floor (point.sample + share * perPixel)));

        for (const auto& candidate : points.get())
            if (candidate.hertz >= lowest && candidate.hertz <= highest
                && std::abs (candidate.sample - point.sample) <= reach && candidate.decibels >= loudest
                && candidate.decibels <= point.decibels + largestDifference)
            {
                refined.hertz = candidate.hertz;
                refined.sample = request.hop.enhanced ? candidate.sample : point.sample;
                loudest = candidate.decibels;
                found = true;
            }
    }

    return found ? refined : point;
}

} // namespace mk::orlo
