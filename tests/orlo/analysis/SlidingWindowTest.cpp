// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/SlidingWindow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

namespace mk::orlo::test
{
namespace
{

using testing::ElementsAre;

/** A window over a signal that counts 1, 2, 3 ... */
class SlidingWindowTest : public testing::Test
{
protected:
    void push (int hop)
    {
        const auto numRead = window.getNumSamplesRead (hop);
        auto* const buffer = window.getHopBuffer (hop);
        std::iota (buffer, buffer + numRead, float (next));
        next += hop;
        window.advance (hop);
    }

    [[nodiscard]] std::vector<float> getSamples() const
    {
        return { window.getSamples(), window.getSamples() + window.getNumSamples() };
    }

    SlidingWindow window;
    int next = 1;
};

TEST_F (SlidingWindowTest, HoldsOneSampleLessThanItsLength)
{
    window.setLength (5);
    EXPECT_THAT (getSamples(), ElementsAre (0, 0, 0, 0));
    push (2);
    EXPECT_THAT (getSamples(), ElementsAre (0, 0, 1, 2));
    push (3);
    EXPECT_THAT (getSamples(), ElementsAre (2, 3, 4, 5));
}

TEST_F (SlidingWindowTest, SlidesForEver)
{
    window.setLength (5);

    for (int i = 0; i < 1000; ++i)
    {
        push (1 + i % 4);

        if (next > 4)
        {
            ASSERT_THAT (getSamples(), ElementsAre (next - 4, next - 3, next - 2, next - 1));
        }
    }
}

TEST_F (SlidingWindowTest, AHopOfTheLengthOrMoreFillsTheWholeWindow)
{
    window.setLength (5);
    EXPECT_EQ (window.getNumSamplesRead (4), 4);
    EXPECT_EQ (window.getNumSamplesRead (5), 5);
    EXPECT_EQ (window.getNumSamplesRead (100), 5);

    for (int i = 0; i < 20; ++i)
    {
        push (5);
        EXPECT_THAT (getSamples(), ElementsAre (next - 5, next - 4, next - 3, next - 2, next - 1));
        push (100);
        EXPECT_THAT (getSamples(), ElementsAre (next - 100, next - 99, next - 98, next - 97, next - 96));
    }
}

TEST_F (SlidingWindowTest, TheLastSampleOfALongHopIsLeftOutAfterAShortOne)
{
    window.setLength (5);
    push (5);
    push (2);
    EXPECT_THAT (getSamples(), ElementsAre (3, 4, 6, 7));
}

TEST_F (SlidingWindowTest, SamplesThatWereWrittenButNotAdvancedOverChangeNothing)
{
    window.setLength (5);
    push (4);

    for (const auto hop : { 1, 3, 5, 50 })
        for (int i = 0; i < 10; ++i)
        {
            auto* const buffer = window.getHopBuffer (hop);
            std::fill_n (buffer, window.getNumSamplesRead (hop), -1.0f);
            EXPECT_THAT (getSamples(), ElementsAre (1, 2, 3, 4));
        }
}

TEST_F (SlidingWindowTest, ALongerWindowBeginsWithTheSamplesOfTheShorterOne)
{
    window.setLength (5);
    push (6);
    push (4);
    window.setLength (8);
    EXPECT_THAT (getSamples(), ElementsAre (7, 8, 9, 10, 0, 0, 0));
    push (2);
    EXPECT_THAT (getSamples(), ElementsAre (9, 10, 0, 0, 0, 11, 12));
}

TEST_F (SlidingWindowTest, AShorterWindowBeginsWithTheOldestSamples)
{
    window.setLength (5);
    push (4);
    window.setLength (3);
    EXPECT_THAT (getSamples(), ElementsAre (1, 2));
    push (1);
    EXPECT_THAT (getSamples(), ElementsAre (2, 5));
}

} // namespace
} // namespace mk::orlo::test
