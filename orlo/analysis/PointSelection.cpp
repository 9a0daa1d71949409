// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PointSelection.h"

#include "Reassignment.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr float slopeTolerance = 0.25f;
constexpr float noTolerance = -1.0f; // keeps nothing
} // namespace

void dropPoints (PointsKept kept,
                 const ReassignmentSpectra& spectra,
                 const AlignedFloats& amplitudes,
                 float* __restrict magnitudes) noexcept
{
    if (kept == PointsKept::all)
        return;

    const auto lineTolerance = kept != PointsKept::clicks ? slopeTolerance : noTolerance;
    const auto clickTolerance = kept != PointsKept::lines ? slopeTolerance : noTolerance;
    const auto inverseGain = 1.0f / spectra.derivativeGain;

    const auto numBins = amplitudes.size();
    const auto* const amplitude = amplitudes.data();
    const auto* const plainRe = spectra.plain.re.data();
    const auto* const plainIm = spectra.plain.im.data();
    const auto* const derivativeRe = spectra.derivative.re.data();
    const auto* const derivativeIm = spectra.derivative.im.data();
    const auto* const rampRe = spectra.ramp.re.data();
    const auto* const rampIm = spectra.ramp.im.data();
    const auto* const rampDerivativeRe = spectra.rampDerivative.re.data();
    const auto* const rampDerivativeIm = spectra.rampDerivative.im.data();

    for (size_t k = 0; k < numBins; ++k)
    {
        const auto m = amplitude[k];
        const auto slope = getFrequencySlope ({ plainRe[k], plainIm[k] },
                                              { derivativeRe[k] * inverseGain, derivativeIm[k] * inverseGain },
                                              { rampRe[k], rampIm[k] },
                                              { rampDerivativeRe[k], rampDerivativeIm[k] },
                                              m);

        // Written so that a NaN is not kept, and without a branch.
        const auto isLine = int (std::abs (slope) < lineTolerance);
        const auto isClick = int (std::abs (slope - 1.0f) < clickTolerance);
        const auto isKept = bool ((isLine | isClick) & int (m >= smallestReassignedMagnitude));
        const auto old = magnitudes[k];
        magnitudes[k] = isKept ? old : 0.0f;
    }
}

} // namespace mk::orlo
