// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests where reassignment puts the energy of signals whose time and frequency are known from theory.
#include "orlo/analysis/SpectralAnalyser.h"

#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace mk::orlo::test
{
namespace
{

struct Point
{
    double hz;
    double sample; // index in the signal
    double energy;
};

struct Setting
{
    int label = 2048;
    int hop = 128;
    double rate = 44100.0;
};

/** Returns the reassigned points of all frames that lie wholly inside the signal, without the quietest ones. */
[[nodiscard]] std::vector<Point>
    reassignedPoints (const Samples& signal, const Setting& setting, float relativeThreshold)
{
    const AnalysisSettings settings { { setting.label - 1, 0, int (WindowType::hann) }, setting.hop, true, 0.0f };
    SpectralAnalyser analyser;
    analyser.configure (settings.window);

    const auto windowLength = setting.label - 1;
    const auto binWidth = setting.rate / setting.label;
    std::vector<Point> points;
    int samplesRead = 0;

    for (int start = 0; start + setting.hop <= int (signal.size()); start += setting.hop)
    {
        Frame frame;
        analyser.process (signal.data() + start, settings, setting.rate, frame);
        samplesRead += setting.hop;

        if (samplesRead < windowLength)
            continue;

        // The window's last sample is never filled, so its first sample is windowLength - 1 back.
        const auto centre = samplesRead - (windowLength - 1) + windowLength / 2;
        auto loudest = 0.0f;

        for (const auto magnitude : frame.magnitudes)
            loudest = std::max (loudest, magnitude);

        for (size_t k = 1; k < frame.size(); ++k)
            if (frame[k].magnitude > 1.0e-7f && frame[k].magnitude >= relativeThreshold * loudest
                && std::abs (frame[k].timeShift) <= float (windowLength / 2)
                && std::abs (frame[k].freqShift) < float (binWidth))
                points.push_back ({ double (k) * binWidth + double (frame[k].freqShift),
                                    double (centre) + double (frame[k].timeShift),
                                    double (frame[k].magnitude) * double (frame[k].magnitude) });
    }

    return points;
}

/** The value below which the given share of the values lies. */
[[nodiscard]] double quantile (std::vector<double> values, double share)
{
    EXPECT_FALSE (values.empty());
    std::sort (values.begin(), values.end());
    return values[size_t (share * double (values.size() - 1))];
}

template <typename Function>
[[nodiscard]] std::vector<double> mapPoints (const std::vector<Point>& points, Function function)
{
    std::vector<double> values;

    for (const auto& point : points)
        values.push_back (function (point));

    return values;
}

TEST (Reassignment, ASineBetweenBinsLiesOnItsFrequency)
{
    constexpr double hz = 997.3;
    const auto points = reassignedPoints (makeSine (hz, 0.5f, 44100, 44100.0), {}, 0.01f);
    ASSERT_GT (points.size(), 500u);

    const auto cents = mapPoints (points, [] (const Point& p) { return std::abs (1200.0 * std::log2 (p.hz / hz)); });
    EXPECT_LT (quantile (cents, 0.5), 0.1);
    EXPECT_LT (quantile (cents, 0.95), 0.25);
}

TEST (Reassignment, AnImpulseLandsOnItsSample)
{
    for (const auto position : { 3000, 3001, 3500, 4095 })
    {
        const auto points = reassignedPoints (makeImpulse (position, 8192), {}, 0.01f);
        ASSERT_GT (points.size(), 1000u);
        EXPECT_LT (quantile (mapPoints (points, [=] (const Point& p) { return std::abs (p.sample - position); }), 1.0),
                   0.5);
    }
}

class ChirpTest : public testing::TestWithParam<std::pair<double, double>>
{
};

TEST_P (ChirpTest, PointsLieOnTheLineThatTheChirpDraws)
{
    const auto [hzPerSecond, allowedBins] = GetParam();
    const Setting setting { 2048, 128, 44100.0 };
    const auto seconds = std::min (1.0, 18000.0 / hzPerSecond);
    const auto signal = makeLinearChirp (1500.0, hzPerSecond, 0.5f, int (seconds * setting.rate), setting.rate);
    const auto points = reassignedPoints (signal, setting, 0.1f);
    ASSERT_GT (points.size(), 500u);

    const auto binWidth = setting.rate / setting.label;
    const auto bins = mapPoints (points,
                                 [&, slope = hzPerSecond] (const Point& p)
                                 { return std::abs (p.hz - (1500.0 + slope * p.sample / setting.rate)) / binWidth; });
    EXPECT_LT (quantile (bins, 0.95), allowedBins);
}

INSTANTIATE_TEST_SUITE_P (Slopes,
                          ChirpTest,
                          testing::Values (std::pair { 2000.0, 0.01 },
                                           std::pair { 20000.0, 0.01 },
                                           std::pair { 96000.0, 0.05 }));

TEST (Reassignment, TwoTonesFourBinsApartStayApart)
{
    const auto binWidth = 44100.0 / 2048.0;
    const auto low = 50.3 * binWidth, high = 54.3 * binWidth;
    auto signal = makeSine (low, 0.4f, 44100, 44100.0);
    const auto second = makeSine (high, 0.4f, 44100, 44100.0);

    for (size_t i = 0; i < signal.size(); ++i)
        signal[i] += second[i];

    double total = 0.0, near = 0.0;

    for (const auto& point : reassignedPoints (signal, {}, 0.0f))
    {
        total += point.energy;

        if (std::min (std::abs (point.hz - low), std::abs (point.hz - high)) < 0.25 * binWidth)
            near += point.energy;
    }

    EXPECT_GT (near / total, 0.99);
}

TEST (Reassignment, AToneAboveItsBinShiftsUpAndOneBelowDown)
{
    const auto binWidth = 44100.0 / 2048.0;

    for (const auto offset : { -0.4, -0.1, 0.1, 0.4 })
    {
        const AnalysisSettings settings { { 2047, 0, int (WindowType::hann) }, 2048, true, 0.0f };
        SpectralAnalyser analyser;
        analyser.configure (settings.window);

        const auto signal = makeSine ((100.0 + offset) * binWidth, 0.5f, 2048, 44100.0);
        Frame frame;
        analyser.process (signal.data(), settings, 44100.0, frame);

        EXPECT_NEAR (double (frame[100].freqShift), offset * binWidth, 0.05);
    }
}

} // namespace
} // namespace mk::orlo::test
