// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RealTransform.h"

#include <cmath>
#include <numbers>

namespace mk::orlo
{
namespace
{
/** Takes pairs apart, and appends the first pair once more, so that bin n - k of n exists for every k. */
void separate (const float* __restrict pairs, size_t numPairs, Spectrum& result) noexcept
{
    float* __restrict re = result.re.data();
    float* __restrict im = result.im.data();

    for (size_t i = 0; i < numPairs; ++i)
    {
        re[i] = pairs[2 * i];
        im[i] = pairs[2 * i + 1];
    }

    re[numPairs] = re[0];
    im[numPairs] = im[0];
}
/** The bins of real samples from those of half as many complex numbers, of which samples of even number are the real
    parts and the others the imaginary parts. With Z the complex bins, of which there are numBins, Z[k] +
    conj (Z[numBins - k]) is twice the transform of the even samples, and the difference is 2i times that of the odd. */
void combine (const Spectrum& half,
              size_t numBins,
              const Spectrum& twiddle,
              float* __restrict resultRe,
              float* __restrict resultIm) noexcept
{
    const auto* const re = half.re.data();
    const auto* const im = half.im.data();
    const auto* const mirroredRe = re + numBins;
    const auto* const mirroredIm = im + numBins;
    const auto* const twiddleRe = twiddle.re.data();
    const auto* const twiddleIm = twiddle.im.data();

    for (int k = 0; k < int (numBins); ++k)
    {
        const auto evenRe = re[k] + mirroredRe[-k];
        const auto evenIm = im[k] - mirroredIm[-k];
        const auto oddRe = im[k] + mirroredIm[-k];
        const auto oddIm = mirroredRe[-k] - re[k];
        resultRe[k] = evenRe + (twiddleRe[k] * oddRe - twiddleIm[k] * oddIm);
        resultIm[k] = evenIm + (twiddleIm[k] * oddRe + twiddleRe[k] * oddIm);
    }
}

/** The bins of two real signals from those of complex numbers, of which one is the real part and one the imaginary. */
void split (const Spectrum& both,
            size_t size,
            float* __restrict firstRe,
            float* __restrict firstIm,
            float* __restrict secondRe,
            float* __restrict secondIm) noexcept
{
    const auto* const re = both.re.data();
    const auto* const im = both.im.data();
    const auto* const mirroredRe = re + size;
    const auto* const mirroredIm = im + size;

    for (int k = 0; k < int (size / 2); ++k)
    {
        firstRe[k] = re[k] + mirroredRe[-k];
        firstIm[k] = im[k] - mirroredIm[-k];
        secondRe[k] = im[k] + mirroredIm[-k];
        secondIm[k] = mirroredRe[-k] - re[k];
    }
}
} // namespace

RealTransform::RealTransform (int size) : numBins (size_t (size) / 2), transform (size / 2)
{
    half.resize (numBins + 1);
    twiddle.resize (numBins);

    for (size_t k = 0; k < numBins; ++k)
    {
        const auto angle = -2.0 * std::numbers::pi * double (k) / double (size);
        twiddle.re[k] = float (std::cos (angle));
        twiddle.im[k] = float (std::sin (angle));
    }
}

void RealTransform::run (Spectrum& spectrum) noexcept
{
    transform.run();
    separate (transform.getOutput(), numBins, half);
    combine (half, numBins, twiddle, spectrum.re.data(), spectrum.im.data());
}

//==============================================================================
RealPairTransform::RealPairTransform (int numSamples) : size (size_t (numSamples)), transform (numSamples)
{
    both.resize (size + 1);
}

void RealPairTransform::run (Spectrum& first, Spectrum& second) noexcept
{
    transform.run();
    separate (transform.getOutput(), size, both);
    split (both, size, first.re.data(), first.im.data(), second.re.data(), second.im.data());
}

} // namespace mk::orlo
