// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/RangeMaxima.h"

#include <juce_core/juce_core.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace mk::orlo::test
{
namespace
{

using testing::ElementsAre;

TEST (RangeMaxima, FindTheLargestValueOfEveryRange)
{
    juce::Random random (1);

    for (int turn = 0; turn < 200; ++turn)
    {
        const auto numValues = 1 + random.nextInt (300);
        std::vector<float> values;
        std::vector<RangeMaxima::Range> ranges;

        for (int i = 0; i < numValues; ++i)
            values.push_back (random.nextFloat());

        for (int i = 0; i < 50; ++i)
        {
            const auto first = random.nextInt (numValues);
            ranges.push_back ({ i, first, first + 1 + random.nextInt (numValues - first) });
        }

        RangeMaxima maxima;
        maxima.setRanges (ranges, values.size());
        std::vector<float> results (ranges.size(), 0.0f);
        maxima.raise (values.data(), results.data());

        for (const auto& range : ranges)
            ASSERT_EQ (results[size_t (range.target)],
                       *std::max_element (values.begin() + range.first, values.begin() + range.end))
                << range.first << " to " << range.end << " of " << numValues;
    }
}

TEST (RangeMaxima, RaiseOnlyWhatIsLowerAndOnlyTheirTargets)
{
    RangeMaxima maxima;
    maxima.setRanges ({ { 1, 0, 2 }, { 2, 2, 4 } }, 4);
    const std::vector<float> values { 0.1f, 0.2f, 0.3f, 0.4f };
    std::vector<float> results { 0.0f, 0.5f, 0.35f, 0.0f };
    maxima.raise (values.data(), results.data());
    EXPECT_THAT (results, ElementsAre (0.0f, 0.5f, 0.4f, 0.0f));
}

TEST (RangeMaxima, NaNsCountAsZero)
{
    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
    RangeMaxima maxima;
    maxima.setRanges ({ { 0, 0, 3 }, { 1, 1, 2 } }, 3);
    const std::vector<float> values { 0.1f, nan, 0.05f };
    std::vector<float> results (2, 0.0f);
    maxima.raise (values.data(), results.data());
    EXPECT_THAT (results, ElementsAre (0.1f, 0.0f));
}

TEST (RangeMaxima, WithoutRangesNothingIsRead)
{
    RangeMaxima maxima;
    maxima.setRanges ({}, 10);
    maxima.raise (nullptr, nullptr);

    // The ranges of before are forgotten.
    maxima.setRanges ({ { 0, 0, 8 } }, 10);
    maxima.setRanges ({}, 10);
    maxima.raise (nullptr, nullptr);
}

} // namespace
} // namespace mk::orlo::test
