// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RealTransform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace mk::orlo
{
namespace
{
constexpr size_t blockSize = 64;

/** Some complex bins k in a row and their mirror images, the bins size - k of the same transform, of which bin size is
    bin 0 again. The mirror images are in the order of their numbers, so the last one belongs to the first bin. Small
    enough for the processor's fastest cache, unlike a whole transform. */
struct Block
{
    alignas (64) float re[blockSize], im[blockSize];
    alignas (64) float mirroredRe[blockSize], mirroredIm[blockSize];
};

/** Reads count bins from first on, and their mirror images. */
void load (const ComplexTransform& transform, size_t size, size_t first, size_t count, Block& block) noexcept
{
    const auto* const pairs = transform.getOutput() + 2 * first;
    const auto* const mirrored = transform.getOutput() + 2 * (size + 1 - first - count);

    for (size_t i = 0; i < count; ++i)
    {
        block.re[i] = pairs[2 * i];
        block.im[i] = pairs[2 * i + 1];
        block.mirroredRe[i] = mirrored[2 * i];
        block.mirroredIm[i] = mirrored[2 * i + 1];
    }
}

/** The bins of real samples from those of half as many complex numbers, of which samples of even number are the real
    parts and the others the imaginary parts. The sum of Z[k] and the conjugate of its mirror image is twice the
    transform of the even samples, and their difference is 2i times that of the odd ones. */
void combine (const Block& block,
              size_t count,
              const float* twiddleRe,
              const float* twiddleIm,
              float* __restrict resultRe,
              float* __restrict resultIm) noexcept
{
    const auto* const mirroredRe = block.mirroredRe + count - 1;
    const auto* const mirroredIm = block.mirroredIm + count - 1;

    for (int i = 0; i < int (count); ++i)
    {
        const auto evenRe = block.re[i] + mirroredRe[-i];
        const auto evenIm = block.im[i] - mirroredIm[-i];
        const auto oddRe = block.im[i] + mirroredIm[-i];
        const auto oddIm = mirroredRe[-i] - block.re[i];
        resultRe[i] = evenRe + (twiddleRe[i] * oddRe - twiddleIm[i] * oddIm);
        resultIm[i] = evenIm + (twiddleIm[i] * oddRe + twiddleRe[i] * oddIm);
    }
}

/** The bins of two real signals from those of complex numbers, of which one is the real part and one the imaginary. */
void split (const Block& block,
            size_t count,
            float* __restrict firstRe,
            float* __restrict firstIm,
            float* __restrict secondRe,
            float* __restrict secondIm) noexcept
{
    const auto* const mirroredRe = block.mirroredRe + count - 1;
    const auto* const mirroredIm = block.mirroredIm + count - 1;

    for (int i = 0; i < int (count); ++i)
    {
        firstRe[i] = block.re[i] + mirroredRe[-i];
        firstIm[i] = block.im[i] - mirroredIm[-i];
        secondRe[i] = block.im[i] + mirroredIm[-i];
        secondIm[i] = mirroredRe[-i] - block.re[i];
    }
}
} // namespace

RealTransform::RealTransform (int size) : numBins (size_t (size) / 2), transform (size / 2)
{
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
    Block block;

    for (size_t k = 0; k < numBins; k += blockSize)
    {
        const auto count = std::min (blockSize, numBins - k);
        load (transform, numBins, k, count, block);
        combine (block, count, &twiddle.re[k], &twiddle.im[k], &spectrum.re[k], &spectrum.im[k]);
    }
}

//==============================================================================
RealPairTransform::RealPairTransform (int numSamples) : size (size_t (numSamples)), transform (numSamples) {}

void RealPairTransform::run (Spectrum& first, Spectrum& second) noexcept
{
    transform.run();
    Block block;

    for (size_t k = 0; k < size / 2; k += blockSize)
    {
        const auto count = std::min (blockSize, size / 2 - k);
        load (transform, size, k, count, block);
        split (block, count, &first.re[k], &first.im[k], &second.re[k], &second.im[k]);
    }
}

} // namespace mk::orlo
