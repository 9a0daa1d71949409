// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MagnitudeGrid.h"
#include "StillPicture.h"
#include "StillPlan.h"

namespace mk::orlo
{

/** In how many strips of neighbouring pixels a picture of that width is finished. */
[[nodiscard]] int getNumStrips (int width) noexcept;

/** Turns the magnitudes of columns into the decibels of a strip of pixels. In a coarse picture the pixels show the loudest of each
    run of FrameOrder::coarseness columns, whose first has frames. Any thread; others may fill other strips. Allocates.
    @param strip  0 .. getNumStrips() - 1, from the left */
void fillStrip (const MagnitudeGrid& grid, const StillPlan& plan, int strip, StillPicture& picture);

} // namespace mk::orlo
