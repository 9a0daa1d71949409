// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo
{

/** Which reassigned points a frame keeps, in the order of the parameter's choices. */
enum class PointsKept
{
    all,
    lines,         /**< Of steady partials. */
    clicks,        /**< Of clicks. */
    linesAndClicks /**< Not those of noise, nor those between components. */
};

} // namespace mk::orlo
