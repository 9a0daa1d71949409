// SPDX-License-Identifier: AGPL-3.0-or-later
// Compares the shares of power that Lines and Clicks keep with theory, at the six sizes.
#include "orlo/analysis/PointSelection.h"
#include "orlo/analysis/SpectralAnalyser.h"

#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <functional>
#include <limits>
#include <numbers>
#include <random>

namespace mk::orlo::test
{
namespace
{

constexpr double rate = 44100.0;

/** The power of some points of a signal: of all of them and of those that are kept. */
struct Power
{
    double all = 0.0, lines = 0.0, clicks = 0.0, both = 0.0;

    [[nodiscard]] double getLines() const { return lines / all; }
    [[nodiscard]] double getClicks() const { return clicks / all; }
    [[nodiscard]] double getBoth() const { return both / all; }
};

using BinFilter = std::function<bool (size_t)>;

[[nodiscard]] bool isAnyBin (size_t) { return true; }

class Points : public testing::TestWithParam<int>
{
protected:
    /** Adds up the points of all frames that lie wholly inside the signal, a quarter of a window apart. */
    [[nodiscard]] Power measure (const Samples& signal, const BinFilter& isMeasured = isAnyBin) const
    {
        Power power;
        const auto add = [&] (PointsKept kept, double& sum)
        {
            for (const auto& frame : analyse (signal, kept))
                for (size_t k = 1; k < frame.size(); ++k)
                    if (isMeasured (k))
                        sum += double (frame.magnitudes[k]) * double (frame.magnitudes[k]);
        };

        add (PointsKept::all, power.all);
        add (PointsKept::lines, power.lines);
        add (PointsKept::clicks, power.clicks);
        add (PointsKept::linesAndClicks, power.both);
        return power;
    }

    [[nodiscard]] std::vector<Frame> analyse (const Samples& signal, PointsKept kept) const
    {
        const auto hop = size / 4;
        const AnalysisSettings settings { { size - 1, 0, int (WindowType::hann) }, hop, true, 0.0f, kept };
        SpectralAnalyser analyser;
        analyser.configure (settings.window);
        std::vector<Frame> frames;

        for (int start = 0; start + hop <= int (signal.size()); start += hop)
        {
            Frame frame;
            analyser.process (signal.data() + start, settings, rate, frame);

            if (start + hop >= size)
                frames.push_back (std::move (frame));
        }

        return frames;
    }

    [[nodiscard]] double getBinWidth() const { return rate / double (size); }

    /** The bins that are at least so many bins from a frequency, and the others. */
    [[nodiscard]] BinFilter awayFrom (double hz, double bins) const
    {
        return [=, this] (size_t k) { return std::abs (double (k) - hz / getBinWidth()) >= bins; };
    }

    [[nodiscard]] BinFilter near (double hz, double bins) const
    {
        return [=, this] (size_t k) { return std::abs (double (k) - hz / getBinWidth()) < bins; };
    }

    const int size = GetParam();
};

INSTANTIATE_TEST_SUITE_P (Sizes,
                          Points,
                          testing::Values (256, 512, 1024, 2048, 4096, 8192),
                          testing::PrintToStringParamName());

void add (Samples& signal, const Samples& other)
{
    for (size_t i = 0; i < signal.size(); ++i)
        signal[i] += other[i];
}

[[nodiscard]] Samples makeImpulses (int spacing, float amplitude, int numSamples)
{
    Samples signal (size_t (numSamples), 0.0f);

    for (int i = spacing / 2; i < numSamples; i += spacing)
        signal[size_t (i)] = amplitude;

    return signal;
}

/** The share of a chirp's power that Lines keeps, by the definition of the slope for a continuous Hann window.

    @param gamma  the chirp's rate in radians per square of the window's length */
[[nodiscard]] double expectedLines (double gamma)
{
    constexpr int steps = 512;
    auto all = 0.0, lines = 0.0;
    const auto reach = 4.0 + gamma / (4.0 * std::numbers::pi);

    for (auto bins = 0.0; bins < reach; bins += 0.02)
    {
        std::complex<double> x, d, t, td;

        for (int i = 0; i < steps; ++i)
        {
            const auto u = (double (i) + 0.5) / steps - 0.5;
            const auto phase = std::polar (1.0, 0.5 * gamma * u * u - 2.0 * std::numbers::pi * bins * u);
            const auto w = 1.0 + std::cos (2.0 * std::numbers::pi * u);
            const auto slope = -2.0 * std::numbers::pi * std::sin (2.0 * std::numbers::pi * u);
            x += w * phase;
            d += slope * phase;
            t += u * w * phase;
            td += u * slope * phase;
        }

        const auto q = 1.0 + std::real (td / x - d * t / (x * x));
        all += std::norm (x);

        if (std::abs (q) < 0.25)
            lines += std::norm (x);
    }

    return lines / all;
}

/** So long that the shares of noise are those of all noise within a few thousandths. */
[[nodiscard]] int lengthFor (int size) { return std::max (16 * size, 65536); }

TEST_P (Points, OfAToneAreLines)
{
    const auto power = measure (makeSine (3000.3, 0.5f, lengthFor (size), rate));
    EXPECT_GT (power.getLines(), 0.999);
    EXPECT_LT (power.getClicks(), 0.001);
}

TEST_P (Points, OfAnImpulseTrainAreClicks)
{
    const auto power = measure (makeImpulses (2 * size, 1.0f, lengthFor (size)));
    EXPECT_GT (power.getClicks(), 0.999);
    EXPECT_LT (power.getLines(), 0.001);
}

TEST_P (Points, OfTwoTonesFourBinsApartAreLinesExceptBetweenThem)
{
    auto signal = makeSine (50.3 * getBinWidth(), 0.4f, lengthFor (size), rate);
    add (signal, makeSine (54.3 * getBinWidth(), 0.4f, lengthFor (size), rate));
    const auto power = measure (signal);
    EXPECT_GT (power.getLines(), 0.94);
    EXPECT_LT (power.getLines(), 0.98);
    EXPECT_LT (power.getClicks(), 0.02);
}

TEST_P (Points, OfWhiteNoiseAreMostlyNeither)
{
    Samples noise (size_t (2 * lengthFor (size)));
    std::mt19937 random (1);
    std::normal_distribution<float> gauss (0.0f, 0.1f);

    for (auto& value : noise)
        value = gauss (random);

    const auto power = measure (noise);
    EXPECT_NEAR (power.getLines(), 0.21, 0.01);
    EXPECT_NEAR (power.getClicks(), 0.21, 0.01);
    EXPECT_NEAR (power.getBoth(), power.getLines() + power.getClicks(), 1.0e-9);
}

TEST_P (Points, OfAToneWithClicksAreToldApart)
{
    // The tone is 40 times as loud in its bins as a click in the middle of the window.
    constexpr double hz = 3000.3;
    auto signal = makeSine (hz, 40.0f * 4.0f / 8192.0f, lengthFor (size), rate);
    add (signal, makeImpulses (2 * size, float (size) / 8192.0f, lengthFor (size)));

    const auto tone = measure (signal, near (hz, 2.0));
    EXPECT_GT (tone.getLines(), 0.99);
    EXPECT_LT (tone.getClicks(), 0.01);

    const auto clicks = measure (signal, awayFrom (hz, 8.0));
    EXPECT_LT (clicks.getLines(), 0.002);
    EXPECT_GT (clicks.getClicks(), 0.97);

    const auto clicksFurtherAway = measure (signal, awayFrom (hz, 16.0));
    EXPECT_LT (clicksFurtherAway.getLines(), 0.002);
    EXPECT_GT (clicksFurtherAway.getClicks(), 0.99);
}

TEST_P (Points, OfAGlideFollowTheLawOfItsRate)
{
    for (const auto gamma : { 5.0, 15.0, 18.0, 22.0, 60.0 })
    {
        const auto hzPerSecond = gamma * rate * rate / (2.0 * std::numbers::pi * size * size);
        const auto seconds = std::min (15000.0 / hzPerSecond, 3.0);
        const auto signal = makeLinearChirp (2000.0, hzPerSecond, 0.5f, int (seconds * rate), rate);

        // The law is that of an endless chirp, and near gamma = 18 it is as steep as five percent for one of gamma. A
        // short window has few samples for the derivative.
        EXPECT_NEAR (measure (signal).getLines(), expectedLines (gamma), gamma == 18.0 ? 0.05 : 0.02) << gamma;
    }
}

TEST_P (Points, OfAGlideOfAKilohertzASecondStayLinesUpTo1024)
{
    const auto power = measure (makeLinearChirp (2000.0, 1000.0, 0.5f, std::max (12 * size, 65536), rate));
    EXPECT_NEAR (power.getLines(), size <= 1024 ? 1.0 : size == 2048 ? 0.79 : 0.0, 0.01);
}

//==============================================================================
/** The frames of some noise with a tone in it. */
[[nodiscard]] std::vector<Frame> analyseNoise (PointsKept kept, bool enhanced)
{
    auto signal = makeSine (1000.0, 0.25f, 8192, rate);
    std::mt19937 random (2);
    std::uniform_real_distribution<float> noise (-0.1f, 0.1f);

    for (auto& value : signal)
        value += noise (random);

    const AnalysisSettings settings { { 1023, 0, int (WindowType::hann) }, 256, enhanced, 0.0f, kept };
    SpectralAnalyser analyser;
    analyser.configure (settings.window);
    std::vector<Frame> frames (8192 / 256);

    for (size_t i = 0; i < frames.size(); ++i)
        analyser.process (signal.data() + 256 * i, settings, rate, frames[i]);

    return frames;
}

TEST (PointSelection, KeepsThePointsAsTheyAreAndSilencesTheOthers)
{
    const auto all = analyseNoise (PointsKept::all, true);
    const auto lines = analyseNoise (PointsKept::lines, true);
    auto numKept = 0, numDropped = 0;

    for (size_t i = 0; i < all.size(); ++i)
    {
        EXPECT_EQ (lines[i].timeShifts, all[i].timeShifts);
        EXPECT_EQ (lines[i].freqShifts, all[i].freqShifts);
        EXPECT_EQ (lines[i].format, all[i].format);

        for (size_t k = 0; k < all[i].size(); ++k)
        {
            const auto isKept = lines[i].magnitudes[k] > 0.0f;
            EXPECT_EQ (lines[i].magnitudes[k], isKept ? all[i].magnitudes[k] : 0.0f);
            ++(isKept ? numKept : numDropped);
        }
    }

    EXPECT_GT (numKept, 1000);
    EXPECT_GT (numDropped, 1000);
}

TEST (PointSelection, LeavesClassicAsItIs)
{
    const auto all = analyseNoise (PointsKept::all, false);
    const auto lines = analyseNoise (PointsKept::lines, false);

    for (size_t i = 0; i < all.size(); ++i)
        EXPECT_EQ (lines[i].magnitudes, all[i].magnitudes);
}

TEST (PointSelection, DropsWhatIsNotANumberOrTooQuietToBeReassigned)
{
    Spectrum ones, none;
    AlignedFloats amplitudes;

    for (auto* spectrum : { &ones, &none })
        spectrum->resize (4);

    // The slope of these bins is that of a click, 1.
    std::fill (ones.re.begin(), ones.re.end(), 1.0f);
    amplitudes.resize (4);
    amplitudes[0] = 1.0f;
    amplitudes[1] = std::numeric_limits<float>::quiet_NaN();
    amplitudes[2] = 0.9e-6f;
    amplitudes[3] = 0.0f;
    ones.re[2] = 0.9e-6f;
    ones.re[3] = 0.0f;

    std::vector<float> magnitudes { 1.0f, 2.0f, 3.0f, 4.0f };
    dropPoints (PointsKept::clicks, { ones, none, none, none }, amplitudes, magnitudes.data());
    EXPECT_EQ (magnitudes, (std::vector { 1.0f, 0.0f, 0.0f, 0.0f }));
    dropPoints (PointsKept::lines, { ones, none, none, none }, amplitudes, magnitudes.data());
    EXPECT_EQ (magnitudes, (std::vector { 0.0f, 0.0f, 0.0f, 0.0f }));
}

} // namespace
} // namespace mk::orlo::test
