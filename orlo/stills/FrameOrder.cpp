// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrameOrder.h"

#include <algorithm>

namespace mk::orlo
{

FrameOrder::FrameOrder (const StillPlan& plan, Which whichFrames) noexcept
    : which (whichFrames),
      margin (plan.margin),
      framesPerColumn (plan.framesPerColumn),
      numBefore (std::min<std::int64_t> (plan.margin % coarseness, plan.getNumFrameColumns()))
{
    const auto all = plan.getNumFrameColumns();
    const auto numEighths = (all - numBefore + coarseness - 1) / coarseness;
    numColumns = which == Which::all ? all : which == Which::everyEighth ? numEighths : all - numEighths;
}

std::int64_t FrameOrder::getColumn (std::int64_t index) const noexcept
{
    auto place = index;

    if (which == Which::everyEighth)
        place = numBefore + index * coarseness;
    else if (which == Which::others && index >= numBefore)
        place = index + 1 + (index - numBefore) / (coarseness - 1);

    return place - margin;
}

OwnColumns FrameOrder::getOwnColumns (std::int64_t first, std::int64_t end) const noexcept
{
    // Another run's frames reach as far as the margin.
    OwnColumns own;

    if (first > 0)
        own.first = getPlace (first - 1).column + margin + 1;

    if (end < getNumFrames())
        own.last = getPlace (end).column - margin - 1;

    return own;
}

} // namespace mk::orlo
