// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"
#include "ComplexTransform.h"

namespace mk::orlo
{

/** The positive frequencies of a transform, real and imaginary parts apart, so that loops over them are vectorised. */
struct Spectrum
{
    /** Allocates. New bins are zeros. */
    void resize (size_t numBins)
    {
        re.resize (numBins);
        im.resize (numBins);
    }

    AlignedFloats re, im;
};

/** Twice the transform of real samples.

    Complex transforms are vectorised better than real ones. So the samples are transformed as half as many complex
    numbers, from which the bins are worked out (e.g. Press et al., Numerical Recipes, 12.3). One thread at a time.
*/
class RealTransform
{
public:
    /** Plans and allocates.

        @param size  samples, a power of two from 2 up */
    explicit RealTransform (int size);

    /** Where the samples are to be written before each run(): size floats, zeros at first. */
    [[nodiscard]] float* getInput() noexcept { return transform.getInput(); }

    /** Writes the bins 0 .. size / 2 - 1, each twice the sum of x[n] exp (-2 pi i k n / size). */
    void run (Spectrum& spectrum) noexcept;

private:
    const size_t numBins;
    ComplexTransform transform;
    Spectrum twiddle; // exp (-2 pi i k / size)
};

/** Twice the transforms of two real signals, by a single transform of complex numbers of which the first signal is the
    real part and the second the imaginary part. Rounding errors of the louder signal get into the other one, so both
    should be about equally loud. One thread at a time. */
class RealPairTransform
{
public:
    /** Plans and allocates.

        @param size  samples of each signal, a power of two from 2 up */
    explicit RealPairTransform (int size);

    /** Where the samples are to be written before each run(): size pairs of floats, zeros at first. */
    [[nodiscard]] float* getInput() noexcept { return transform.getInput(); }

    /** Writes the bins 0 .. size / 2 - 1 of both, each twice the sum of x[n] exp (-2 pi i k n / size). */
    void run (Spectrum& first, Spectrum& second) noexcept;

private:
    const size_t size;
    ComplexTransform transform;
};

} // namespace mk::orlo
