// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/StillPoints.h"

#include "MemorySource.h"
#include "orlo/analysis/Decibels.h"
#include "orlo/stills/MakeStill.h"
#include "orlo/stills/StillScales.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;

/** A silent picture, 40 by 30 pixels, each a hundred samples wide, from sample 1000 on. */
class StillPoints : public testing::Test
{
protected:
    StillPoints()
    {
        for (int y = 0; y < picture.getHeight(); ++y)
            std::ranges::fill (picture.getRow (y), silenceDb);
    }

    void set (int x, int y, float decibels) { picture.getRow (y)[size_t (x)] = decibels; }

    [[nodiscard]] std::optional<StillPoint> find (int x, int y, int radius = 8) const
    {
        return findStrongestPoint (picture, *scale, { x, y }, radius);
    }

    const StillRequest request = makeRequest ({}, 1000.0, 4000.0, 40, 30, true);
    const std::shared_ptr<StillMemory> memory = std::make_shared<StillMemory>();
    StillPicture picture { request, false, *memory };
    const std::shared_ptr<const FrequencyScale> scale = makeStillScale (request);
};

TEST_F (StillPoints, TheStrongestWithinReachIsTaken)
{
    set (10, 10, -40.0f);
    set (12, 13, -20.0f);
    set (30, 10, -1.0f);
    const auto point = find (10, 10);
    ASSERT_TRUE (point);
    EXPECT_EQ (point->x, 12);
    EXPECT_EQ (point->y, 13);
    EXPECT_EQ (point->decibels, -20.0f);
}

TEST_F (StillPoints, TheReachIsACircle)
{
    set (18, 10, -20.0f);
    EXPECT_TRUE (find (10, 10));
    EXPECT_FALSE (find (9, 10));
    EXPECT_FALSE (find (12, 16)); // 6 and 6 pixels away, which are more than 8
    EXPECT_TRUE (find (13, 15));
}

TEST_F (StillPoints, OfTwoThatAreAsStrongTheNearerOneIsTaken)
{
    set (8, 8, -20.0f);
    set (13, 13, -20.0f);
    EXPECT_EQ (find (12, 12)->x, 13);
    EXPECT_EQ (find (9, 9)->x, 8);
}

TEST_F (StillPoints, SilenceHasNone)
{
    EXPECT_FALSE (find (10, 10));
    set (11, 10, std::nanf (""));
    EXPECT_FALSE (find (10, 10));
}

TEST_F (StillPoints, PlacesAtAndBeyondTheEdgesAreSearchedToo)
{
    set (0, 0, -30.0f);
    set (39, 29, -31.0f);
    EXPECT_EQ (find (-5, -5)->decibels, -30.0f);
    EXPECT_EQ (find (44, 33)->decibels, -31.0f);
    EXPECT_FALSE (find (1000, 1000));
}

TEST_F (StillPoints, APixelHasTheFrequencyOfItsRowAndTheTimeOfItsMiddle)
{
    const auto top = getStillPoint (picture, *scale, { 0, 0 });
    EXPECT_NEAR (top.hertz, 22050.0, 0.1);
    EXPECT_EQ (top.sample, 1050.0);

    const auto bottom = getStillPoint (picture, *scale, { 100, 100 });
    EXPECT_EQ (bottom.x, 39);
    EXPECT_EQ (bottom.y, 29);
    EXPECT_NEAR (bottom.hertz, 0.0, 0.1);
    EXPECT_EQ (bottom.sample, 4950.0);
    EXPECT_EQ (bottom.decibels, silenceDb);
}

//==============================================================================
[[nodiscard]] StillPoint measureTone (double hz, bool enhanced, double length)
{
    auto request = makeRequest (makeSine (hz, 0.5f, 60000, rate), 20000.0, length, 100, 200, enhanced);
    const auto picture = makeStill (request, 1, [] (double) { return true; });
    const auto scale = makeStillScale (request);
    const auto row = int (std::lround ((1.0 - hz / 22050.0) * 199.0));
    const auto point = findStrongestPoint (*picture, *scale, { 50, row + 2 }, 8);
    return refineStillPoint (*picture, point.value_or (StillPoint {}));
}

TEST (StillPointOfATone, IsMeasuredFinerThanAPixelAtEveryZoomAndInBothModes)
{
    // A row is 111 Hz high here.
    for (const auto hz : { 440.02, 3210.5, 15000.25 })
        for (const auto enhanced : { false, true })
            for (const auto length : { 50.0, 2000.0, 20000.0 })
            {
                SCOPED_TRACE (testing::Message() << hz << " " << enhanced << " " << length);
                const auto point = measureTone (hz, enhanced, length);
                EXPECT_NEAR (point.hertz, hz, 0.01);

                // Between two bins the picture shows a tone that much quieter.
                EXPECT_NEAR (point.decibels, -7.0f, 1.1f);
                EXPECT_NEAR (point.sample, 20000.0 + 0.505 * length, 0.09 * length + 1.0);
            }
}

TEST (StillPointOfATone, StaysAsItIsWhereTheSoundHasNoSuchPoint)
{
    const auto request = makeRequest (makeSine (1000.0, 0.5f, 60000, rate), 20000.0, 2000.0, 100, 200, true);
    const auto picture = makeStill (request, 1, [] (double) { return true; });
    const StillPoint made { 10, 20, 19833.0, 20210.0, -30.0f };
    const auto refined = refineStillPoint (*picture, made);
    EXPECT_EQ (refined.hertz, made.hertz);
    EXPECT_EQ (refined.sample, made.sample);
}

} // namespace
} // namespace mk::orlo::test
