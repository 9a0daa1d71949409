// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/FrameBin.h"
#include "orlo/analysis/Reassignment.h"

namespace mk::orlo
{

/** Clears the shifts of bins that the analysis has not reassigned. It leaves them those of whatever frame it made
    before, and which that was depends on how the picture was cut and on which thread took which section. */
inline void clearOldShifts (Frame& frame) noexcept
{
    const auto numBins = frame.size();
    const auto* const magnitudes = frame.magnitudes.data();
    auto* const timeShifts = frame.timeShifts.data();
    auto* const freqShifts = frame.freqShifts.data();

    for (size_t k = 0; k < numBins; ++k)
        if (! (magnitudes[k] >= smallestReassignedMagnitude))
        {
            timeShifts[k] = 0.0f;
            freqShifts[k] = 0.0f;
        }
}

} // namespace mk::orlo
