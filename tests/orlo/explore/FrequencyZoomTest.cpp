// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/explore/FrequencyZoom.h"

#include "orlo/analysis/FrequencyScale.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::orlo::test
{
namespace
{

constexpr double zoomNyquist = 22050.0;

class FrequencyZoomTest : public testing::TestWithParam<int>
{
protected:
    FrequencyZoomTest() { scale.setScaleType (GetParam()); }

    /** The frequency that the display has at a position of the range. */
    [[nodiscard]] double getFrequency (FrequencyRange range, double position)
    {
        scale.setRange (float (range.min * zoomNyquist), float (range.max * zoomNyquist));
        return double (scale.frequencyForPosition (float (position)));
    }

    [[nodiscard]] double getPosition (FrequencyRange range, double hz)
    {
        scale.setRange (float (range.min * zoomNyquist), float (range.max * zoomNyquist));
        return double (scale.positionForFrequency (float (hz)));
    }

    FrequencyScale scale;
};

TEST_P (FrequencyZoomTest, KeepsTheFrequencyUnderThePoint)
{
    for (const auto position : { 0.25, 0.5, 0.75 })
        for (const auto factor : { 0.5, 0.8, 1.25 })
        {
            const FrequencyRange range { 0.2, 0.6 };
            const auto hz = getFrequency (range, position);
            const auto zoomed = zoomFrequencies (range, GetParam(), zoomNyquist, position, factor);
            EXPECT_NEAR (getPosition (zoomed, hz), position, 0.002) << factor;
            EXPECT_EQ (zoomed.max - zoomed.min < range.max - range.min, factor < 1.0);
        }
}

TEST_P (FrequencyZoomTest, ZoomingOutEndsAtTheWholeRange)
{
    const auto all = zoomFrequencies ({ 0.2, 0.3 }, GetParam(), zoomNyquist, 0.9, 1000.0);
    EXPECT_NEAR (all.min, 0.0, 1.0e-9);
    EXPECT_NEAR (all.max, 1.0, 1.0e-9);
}

TEST_P (FrequencyZoomTest, ZoomingInEndsBeforeTheScaleBecomesTooCoarse)
{
    FrequencyRange range { 0.0, 1.0 };

    for (int i = 0; i < 200; ++i)
        range = zoomFrequencies (range, GetParam(), zoomNyquist, 0.5, 0.9);

    EXPECT_LT (range.max - range.min, 0.01 * range.max);
    EXPECT_GE (range.max - range.min, 0.001 * range.max);
}

TEST_P (FrequencyZoomTest, MovesUntilTheEnds)
{
    const FrequencyRange range { 0.1, 0.3 };
    const auto up = moveFrequencies (range, GetParam(), zoomNyquist, 0.25);
    EXPECT_NEAR (getPosition (range, up.min * zoomNyquist), 0.25, 0.002);

    EXPECT_NEAR (moveFrequencies (range, GetParam(), zoomNyquist, 1000.0).max, 1.0, 1.0e-9);
    EXPECT_NEAR (moveFrequencies (range, GetParam(), zoomNyquist, -1000.0).min, 0.0, 1.0e-9);
}

TEST_P (FrequencyZoomTest, IgnoresFactorsThatAreNone)
{
    for (const auto factor : { 0.0, -1.0, std::numeric_limits<double>::quiet_NaN() })
    {
        const auto range = zoomFrequencies ({ 0.1, 0.3 }, GetParam(), zoomNyquist, 0.5, factor);
        EXPECT_EQ (range.min, 0.1);
        EXPECT_EQ (range.max, 0.3);
    }
}

INSTANTIATE_TEST_SUITE_P (Scales,
                          FrequencyZoomTest,
                          testing::Range (int (FrequencyScale::linear), int (FrequencyScale::numTypes)));

} // namespace
} // namespace mk::orlo::test
