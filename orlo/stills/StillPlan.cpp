// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillPlan.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
// Sums of the same numbers in another order may differ in their last digits, which must not make them other samples.
constexpr double rounding = 1.0e-6;

// A column may have hops that are longer than the live picture's by a quarter, rather than a frame more.
constexpr double longestHop = 1.25;

/** Whether a pixel shows less than a sample. */
[[nodiscard]] bool isWithinSamples (const StillRequest& request) noexcept
{
    return request.getSamplesPerPixel() < 1.0 - rounding;
}

[[nodiscard]] int chooseFramesPerColumn (const StillRequest& request, double samplesPerColumn) noexcept
{
    const auto hop = double (std::max (1, planHop (request.hop).samplesPerFrame));
    const auto wanted = std::ceil (samplesPerColumn / (hop * longestHop));

    // Two frames at the same sample would be the same.
    return int (std::clamp (wanted, 1.0, std::floor (samplesPerColumn)));
}
} // namespace

std::int64_t StillPlan::getCentre (std::int64_t column, int part) const noexcept
{
    const auto position = double (column) + (double (part) + 0.5) / double (framesPerColumn);
    return std::int64_t (std::floor (firstSample + position * samplesPerColumn + rounding));
}

StillPlan makeStillPlan (const StillRequest& request) noexcept
{
    StillPlan plan;
    plan.windowLength = request.hop.windowSize - 1;
    plan.firstSample = request.start;
    plan.samplesPerColumn = std::max (1.0, request.getSamplesPerPixel());
    plan.numColumns = request.width;

    if (isWithinSamples (request))
    {
        plan.firstSample = std::floor (request.start + rounding);
        plan.numColumns = 1 + getColumnOfPixel (plan, request, request.width - 1);
    }

    plan.framesPerColumn = chooseFramesPerColumn (request, plan.samplesPerColumn);

    if (request.hop.enhanced)
        plan.margin = int (std::ceil ((plan.getHalf() + 1) / plan.samplesPerColumn));

    return plan;
}

int getColumnOfPixel (const StillPlan& plan, const StillRequest& request, int x) noexcept
{
    if (! isWithinSamples (request))
        return x;

    const auto sample = request.start + (double (x) + 0.5) * request.getSamplesPerPixel();
    return int (std::floor (sample + rounding) - plan.firstSample);
}

} // namespace mk::orlo
