// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RenderPlan.h"

#include <algorithm>
#include <limits>

namespace mk::orlo
{
namespace
{
[[nodiscard]] std::int64_t divideUp (std::int64_t value, std::int64_t by) noexcept { return (value + by - 1) / by; }

/** How many samples of its hop come after the sample that a window is centred at. A window ends at the end of its hop,
    and its last sample stays empty. If the hop is longer than the window, the window lies at the start of the hop. */
[[nodiscard]] std::int64_t getSamplesAfterCentre (std::int64_t hop, std::int64_t half) noexcept
{
    return hop - (std::min (hop, 2 * half) - half);
}
} // namespace

std::int64_t getLiveDelay (const HopSettings& settings) noexcept
{
    const std::int64_t hop = planHop (settings).samplesPerFrame;
    const std::int64_t half = (settings.windowSize - 1) / 2;

    // In Classic the column that follows a frame shows the time of the frame's centre. In Enhanced later frames
    // may still add points up to half a window before their centre, so it shows the time half a window earlier.
    return hop < 1 ? 0 : getSamplesAfterCentre (hop, half) + (settings.enhanced ? half : 0);
}

RenderPlan makePlan (const PlanRequest& request) noexcept
{
    RenderPlan plan;
    plan.analysis = planHop (request.hop);

    if (plan.analysis.samplesPerFrame < 1)
        return plan;

    const std::int64_t hop = plan.analysis.samplesPerFrame;
    plan.windowLength = request.hop.windowSize - 1;
    plan.samplesPerColumn = hop * plan.analysis.framesPerColumn;
    plan.numColumns = divideUp (request.length, plan.samplesPerColumn);

    if (request.width > 0)
        plan.width = int (std::min<std::int64_t> (plan.numColumns, request.width));
    else if (plan.numColumns <= std::numeric_limits<int>::max())
        plan.width = int (plan.numColumns);

    const auto hopsInWindow = divideUp (plan.windowLength, hop);
    plan.leadFrames = request.hop.enhanced ? 2 * hopsInWindow : hopsInWindow;
    plan.feedStart = request.start + hop / 2 + getLiveDelay (request.hop) - (plan.leadFrames + 1) * hop;

    return plan;
}

} // namespace mk::orlo
