// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PointsKept.h"
#include "RealTransform.h"

namespace mk::orlo
{

/** The four transforms of one frame, of equally many bins and scaled alike, except for derivativeGain. */
struct ReassignmentSpectra
{
    const Spectrum& plain;
    const Spectrum& derivative;     /**< Under the derivative window, times derivativeGain. */
    const Spectrum& ramp;           /**< Under the ramp window. */
    const Spectrum& rampDerivative; /**< Under the product of ramp and derivative window. */
    float derivativeGain = 1.0f;
};

/** Sets the magnitudes of the points that are not kept to 0: those whose slope (see getFrequencySlope()) is 0.25 or
    more from that of a line, 0, or of a click, 1, and bins that are not loud enough to be reassigned. Any thread, no
    allocation.

    @param amplitudes  the magnitudes of the plain transform's bins
    @param magnitudes  one for each bin */
void dropPoints (PointsKept kept,
                 const ReassignmentSpectra& spectra,
                 const AlignedFloats& amplitudes,
                 float* magnitudes) noexcept;

} // namespace mk::orlo
