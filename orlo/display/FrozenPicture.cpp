// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrozenPicture.h"

#include "orlo/stills/RenderPlan.h"

#include <algorithm>

namespace mk::orlo
{

std::int64_t getSamplesPerColumn (const HopSettings& hop) noexcept
{
    const auto plan = planHop (hop);
    return plan.samplesPerFrame < 1 ? 0 : std::int64_t (plan.samplesPerFrame) * plan.framesPerColumn;
}

FrozenPicture findFrozenPicture (const FrozenState& state) noexcept
{
    const auto plan = planHop (state.hop);
    const auto column = getSamplesPerColumn (state.hop);
    FrozenPicture picture;

    if (column < 1 || state.pictureWidth < 1)
        return picture;

    // What waits is never as much as a column once the display has come to rest.
    const auto hop = plan.samplesPerFrame;
    const auto waiting = std::min<std::int64_t> (state.samplesWaiting, hop - 1)
                         + std::min<std::int64_t> (state.framesWaiting, plan.framesPerColumn - 1) * hop;

    // A frame shows the time of a hop about its middle.
    const auto end = double (state.soundEnd - waiting - getLiveDelay (state.hop)) + double (hop) * 0.5;
    picture.length = double (column) * double (state.pictureWidth);
    picture.start = end - picture.length;

    // With nothing right of it, the newest column is the last.
    const auto seam = state.writeColumn % state.pictureWidth;
    picture.seam = state.isScrolling || seam == 0 ? 1.0 : double (seam) / double (state.pictureWidth);
    return picture;
}

} // namespace mk::orlo
