// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/RealTransform.h"

#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>
#include <thread>

namespace mk::orlo::test
{
namespace
{

/** Noise with an offset, so that no bin is empty. */
[[nodiscard]] std::vector<float> makeNoise (int numSamples, int seed, float gain = 1.0f)
{
    juce::Random random (seed);
    std::vector<float> noise (static_cast<size_t> (numSamples));

    for (auto& sample : noise)
        sample = gain * (random.nextFloat() - 0.3f);

    return noise;
}

/** One bin, by the definition, in double precision. */
[[nodiscard]] std::complex<double> transformOf (const std::vector<float>& samples, int bin)
{
    const auto size = int (samples.size());
    std::complex<double> sum;

    for (int n = 0; n < size; ++n)
        sum += double (samples[size_t (n)])
               * std::polar (1.0, -2.0 * std::numbers::pi * double ((std::int64_t (n) * bin) % size) / double (size));

    return sum;
}

[[nodiscard]] Spectrum makeSpectrum (int size)
{
    Spectrum spectrum;
    spectrum.resize (size_t (size / 2));
    return spectrum;
}

/** Compares some bins, the first and the last among them, with twice the transform. */
void expectTransform (const Spectrum& spectrum, const std::vector<float>& samples, double tolerance)
{
    const auto size = int (samples.size());
    const auto last = size / 2 - 1;

    for (int i = 0; i <= 20; ++i)
    {
        const auto bin = last * i / 20;
        const auto expected = 2.0 * transformOf (samples, bin);
        EXPECT_NEAR (double (spectrum.re[size_t (bin)]), expected.real(), tolerance) << "bin " << bin << " of " << size;
        EXPECT_NEAR (double (spectrum.im[size_t (bin)]), expected.imag(), tolerance) << "bin " << bin << " of " << size;
    }
}

void fill (RealPairTransform& transform, const std::vector<float>& first, const std::vector<float>& second)
{
    for (size_t n = 0; n < first.size(); ++n)
    {
        transform.getInput()[2 * n] = first[n];
        transform.getInput()[2 * n + 1] = second[n];
    }
}

TEST (RealTransform, EverySizeGivesTwiceTheTransform)
{
    for (int size = 2; size <= 16384; size *= 2)
    {
        const auto samples = makeNoise (size, size);
        auto spectrum = makeSpectrum (size);
        RealTransform transform (size);
        std::copy (samples.begin(), samples.end(), transform.getInput());
        transform.run (spectrum);
        expectTransform (spectrum, samples, 1.0e-5 * std::sqrt (double (size)));
    }
}

TEST (RealTransform, LeavesItsInputAlone)
{
    // The analysis writes the zeros behind a window only once.
    const auto samples = makeNoise (256, 1);
    auto spectrum = makeSpectrum (256);
    RealTransform transform (256);
    std::copy (samples.begin(), samples.end(), transform.getInput());
    transform.run (spectrum);
    EXPECT_TRUE (std::equal (samples.begin(), samples.end(), transform.getInput()));
}

TEST (RealTransform, ItsInputBeginsAsZeros)
{
    auto spectrum = makeSpectrum (64);
    RealTransform transform (64);
    transform.run (spectrum);

    for (size_t k = 0; k < 32; ++k)
    {
        EXPECT_EQ (spectrum.re[k], 0.0f);
        EXPECT_EQ (spectrum.im[k], 0.0f);
    }
}

TEST (RealPairTransform, EverySizeGivesTwiceBothTransforms)
{
    for (int size = 2; size <= 16384; size *= 2)
    {
        const auto first = makeNoise (size, size);
        const auto second = makeNoise (size, size + 1, 2.0f);
        auto firstSpectrum = makeSpectrum (size);
        auto secondSpectrum = makeSpectrum (size);
        RealPairTransform transform (size);
        fill (transform, first, second);
        transform.run (firstSpectrum, secondSpectrum);
        expectTransform (firstSpectrum, first, 1.0e-5 * std::sqrt (double (size)));
        expectTransform (secondSpectrum, second, 2.0e-5 * std::sqrt (double (size)));
    }
}

TEST (RealPairTransform, LeavesItsInputAlone)
{
    const auto first = makeNoise (128, 1);
    const auto second = makeNoise (128, 2);
    auto firstSpectrum = makeSpectrum (128);
    auto secondSpectrum = makeSpectrum (128);
    RealPairTransform transform (128);
    fill (transform, first, second);
    transform.run (firstSpectrum, secondSpectrum);

    for (size_t n = 0; n < 128; ++n)
    {
        EXPECT_EQ (transform.getInput()[2 * n], first[n]);
        EXPECT_EQ (transform.getInput()[2 * n + 1], second[n]);
    }
}

TEST (RealTransform, EqualTransformsRoundAlike)
{
    // Pictures of the same sound are equal, whichever instance and thread made them.
    const auto samples = makeNoise (2048, 1);
    std::vector<Spectrum> spectra;

    for (int i = 0; i < 3; ++i)
    {
        spectra.push_back (makeSpectrum (2048));
        RealTransform transform (2048);
        std::copy (samples.begin(), samples.end(), transform.getInput());
        transform.run (spectra.back());
        EXPECT_EQ (spectra.back().re, spectra.front().re);
        EXPECT_EQ (spectra.back().im, spectra.front().im);
        ComplexTransform::freePlanningMemory();
    }
}

TEST (ComplexTransform, PlanningMemoryIsNotFreedUnderAPlan)
{
    const auto samples = makeNoise (512, 1);
    auto spectrum = makeSpectrum (512);
    RealTransform transform (512);
    ComplexTransform::freePlanningMemory();
    std::copy (samples.begin(), samples.end(), transform.getInput());
    transform.run (spectrum);
    expectTransform (spectrum, samples, 1.0e-4);
}

TEST (ComplexTransform, ThreadsMayPlanTransformAndFreeAtOnce)
{
    std::vector<std::thread> threads;
    std::atomic<int> numWrong { 0 };

    for (int i = 0; i < 4; ++i)
        threads.emplace_back (
            [&numWrong, i]
            {
                for (int turn = 0; turn < 25; ++turn)
                {
                    const auto size = 64 << ((i + turn) % 5);
                    auto spectrum = makeSpectrum (size);
                    RealTransform transform (size);
                    std::fill_n (transform.getInput(), size, 1.0f);
                    transform.run (spectrum);
                    numWrong += std::abs (spectrum.re[0] - 2.0f * float (size)) < 0.01f ? 0 : 1;
                    ComplexTransform::freePlanningMemory();
                }
            });

    for (auto& thread : threads)
        thread.join();

    EXPECT_EQ (numWrong.load(), 0);
}

} // namespace
} // namespace mk::orlo::test
