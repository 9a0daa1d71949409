// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/AnalysisWindows.h"

#include <gtest/gtest.h>
#include <juce_core/juce_core.h>

#include <cmath>
#include <numeric>

namespace mk::orlo::test
{
namespace
{

TEST (AnalysisWindows, TabulatedShapesAreSymmetricalWithAMeanOfOne)
{
    for (int type = 0; type < int (WindowType::gaussian); ++type)
    {
        AnalysisWindows windows;
        windows.rebuild (255, type);
        const auto sum = std::accumulate (windows.plain.begin(), windows.plain.end(), 0.0);
        EXPECT_NEAR (sum / 255.0, 1.0, 1.0e-5) << type;

        for (size_t i = 0; i < 255; ++i)
            EXPECT_NEAR (windows.plain[i], windows.plain[254 - i], 1.0e-4f) << type;
    }
}

TEST (AnalysisWindows, AHannWindowOf255EndsAtZeroAndHasAPlainCentralDifference)
{
    AnalysisWindows windows;
    windows.rebuild (255, int (WindowType::hann));
    const auto& w = windows.plain;
    EXPECT_NEAR (w.front(), 0.0f, 1.0e-7f);
    EXPECT_NEAR (w.back(), 0.0f, 1.0e-7f);

    for (size_t i = 1; i < 254; ++i)
        EXPECT_NEAR (windows.derivative[i], (w[i + 1] - w[i - 1]) * 0.5f, 1.0e-6f);
}

TEST (AnalysisWindows, TheDerivativeOfHannMatchesTheFormula)
{
    AnalysisWindows windows;
    windows.rebuild (2047, int (WindowType::hann));

    // The mean of 0.5 - 0.5 cos over 2047 samples is 1023 / 2047.
    const auto scale = 2047.0 / 1023.0;
    const auto step = juce::MathConstants<double>::twoPi / 2046.0;

    for (size_t i = 1; i < 2046; ++i)
        EXPECT_NEAR (windows.derivative[i], scale * 0.5 * step * std::sin (step * double (i)), 1.0e-6) << i;
}

TEST (AnalysisWindows, AWindowThatEndsAboveZeroKeepsItsStepAtTheEdges)
{
    const auto derivative = differentiateWindow (std::vector<float> (9, 2.0f));
    EXPECT_EQ (derivative.front(), 2.0f);
    EXPECT_EQ (derivative.back(), -2.0f);

    for (size_t i = 1; i < 8; ++i)
        EXPECT_EQ (derivative[i], 0.0f);
}

TEST (AnalysisWindows, ASlopeBetweenTheEndsIsRemovedAndAddedBack)
{
    // The slope is measured from the first sample to the last; falling is positive.
    const auto derivative = differentiateWindow ({ 4.0f, 3.0f, 2.0f, 1.0f, 0.0f });
    const std::vector<float> levelled { 0.0f, 4.0f - 2.0f + 2.0f, 3.0f - 2.0f + 1.0f, 0.0f, 1.0f - 2.0f - 1.0f, -4.0f,
                                        0.0f };

    for (size_t i = 1; i < 4; ++i)
        EXPECT_FLOAT_EQ (derivative[i], 1.0f + (levelled[i + 2] - levelled[i]) * 0.5f);

    EXPECT_FLOAT_EQ (derivative[0], 1.0f + (levelled[2] - levelled[0]) * 0.5f + 2.0f);
    EXPECT_FLOAT_EQ (derivative[4], 1.0f + (levelled[6] - levelled[4]) * 0.5f - 2.0f);
}

TEST (AnalysisWindows, FewerThanTwoSamplesHaveNoDerivative)
{
    EXPECT_TRUE (differentiateWindow ({}).empty());
    EXPECT_TRUE (differentiateWindow ({ 1.0f }).empty());
}

TEST (AnalysisWindows, TheRampIsCentredOnHalfTheLength)
{
    AnalysisWindows windows;
    windows.rebuild (255, int (WindowType::rectangular));
    EXPECT_EQ (windows.ramp[127], 0.0f);
    EXPECT_NEAR (windows.ramp[0], -127.0f, 1.0e-3f);
    EXPECT_NEAR (windows.ramp[254], 127.0f, 1.0e-3f);
}

TEST (AnalysisWindows, TheGaussianPeaksAtOneAndHasItsAnalyticDerivative)
{
    AnalysisWindows exact, numeric;
    exact.rebuild (601, int (WindowType::gaussian));
    numeric.rebuild (601, int (WindowType::gaussianNumericDerivative));
    EXPECT_FLOAT_EQ (exact.plain[300], 1.0f);
    EXPECT_NEAR (exact.plain[300 + 100], std::exp (-0.5f * std::pow (100.0f / (601.0f / 6.0f), 2.0f)), 1.0e-6f);
    EXPECT_EQ (exact.plain, numeric.plain);
    EXPECT_NEAR (exact.derivative[200], 100.0f / std::pow (601.0f / 6.0f, 2.0f) * exact.plain[200], 1.0e-7f);

    for (size_t i = 1; i < 600; ++i)
        EXPECT_NEAR (exact.derivative[i], numeric.derivative[i], 1.0e-5f);
}

TEST (AnalysisWindows, ShrinkingClearsTheLongerWindow)
{
    AnalysisWindows windows;
    windows.rebuild (8191, int (WindowType::hann));
    windows.rebuild (255, int (WindowType::hann));
    EXPECT_EQ (windows.plain.size(), 255u);
    EXPECT_EQ (windows.derivative.size(), 255u);
    EXPECT_EQ (windows.ramp.size(), 255u);
}

} // namespace
} // namespace mk::orlo::test
