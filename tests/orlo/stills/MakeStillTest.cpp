// SPDX-License-Identifier: AGPL-3.0-or-later
// What a still picture shows.
#include "orlo/stills/MakeStill.h"

#include "DrawnStill.h"
#include "orlo/analysis/Decibels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace mk::orlo::test
{
namespace
{
//==============================================================================
using Zoom = std::tuple<double, bool>;

/** The number of samples in a pixel, and the mode. */
class MakeStillAtZoom : public testing::TestWithParam<Zoom>
{
protected:
    const double samplesPerPixel = std::get<0> (GetParam());
    const bool enhanced = std::get<1> (GetParam());
};

TEST_P (MakeStillAtZoom, AClickIsInThePixelOfItsSample)
{
    for (const auto window : { 256, 2048 })
        for (const auto x : { 0, 17, 99 })
        {
            const auto start = 3000.0;
            const auto sample = std::int64_t (std::floor (start + (x + 0.5) * samplesPerPixel));
            auto request = makeRequest (
                makeImpulse (int (sample), int (sample) + 1), start, 100.0 * samplesPerPixel, 100, 64, enhanced);
            request.hop.windowSize = window;
            const auto picture = drawStill (request);

            // In Classic a click stands in all windows that have it, the loudest in the one about it.
            const auto found = findLoudestColumn (*picture);
            const auto foundSample = std::int64_t (std::floor (start + (found + 0.5) * samplesPerPixel));

            EXPECT_EQ (foundSample, sample) << window;
        }
}

TEST_P (MakeStillAtZoom, APictureFurtherOnHasTheSameColumns)
{
    const auto noise = makeQuietNoise (int (100 * samplesPerPixel) + 60000, 3);
    auto request = makeRequest (noise, 20000.0, 50.0 * samplesPerPixel, 50, 48, enhanced);
    const auto picture = drawStill (request);

    for (const auto distance : { 1, 4, 20 })
    {
        request.start = 20000.0 + distance * samplesPerPixel;
        const auto further = drawStill (request);
        expectSame (*further, *picture, distance);
    }
}

TEST_P (MakeStillAtZoom, DoesNotDependOnTheNumberOfThreads)
{
    const auto noise = makeQuietNoise (int (100 * samplesPerPixel) + 60000, 3);
    const auto request = makeRequest (noise, 20000.0, 50.0 * samplesPerPixel, 50, 48, enhanced);
    const auto one = drawStill (request, 1);
    expectSame (*drawStill (request, 4), *one);
}

TEST_P (MakeStillAtZoom, ZoomingOutAndBackInGivesTheFirstPicture)
{
    const auto noise = makeQuietNoise (int (100 * samplesPerPixel) + 60000, 3);
    auto request = makeRequest (noise, 20000.25, 50.0 * samplesPerPixel, 50, 48, enhanced);
    const auto first = drawStill (request);

    const auto zoom = [&request] (double factor)
    {
        const auto cursor = 20000.25 + 12.3;
        request.start = cursor - (cursor - request.start) * factor;
        request.length *= factor;
    };

    for (int i = 0; i < 5; ++i)
        zoom (1.3);

    const auto out = drawStill (request);
    EXPECT_NE (out->getDecibels (3, 20), first->getDecibels (3, 20));

    for (int i = 0; i < 5; ++i)
        zoom (1.0 / 1.3);

    expectSame (*drawStill (request), *first);
}

INSTANTIATE_TEST_SUITE_P (All,
                          MakeStillAtZoom,
                          testing::Combine (testing::Values (0.25, 1.0, 5.5, 110.25, 163.0, 1653.75), testing::Bool()));

//==============================================================================
TEST (MakeStill, ShowsSilenceAroundTheSound)
{
    for (const auto enhanced : { false, true })
    {
        const auto picture = drawStill (makeRequest (makeQuietNoise (10000), -30000.0, 60000.0, 60, 20, enhanced));

        for (int y = 0; y < 20; ++y)
        {
            EXPECT_EQ (picture->getDecibels (0, y), silenceDb);
            EXPECT_EQ (picture->getDecibels (59, y), silenceDb);
        }

        EXPECT_GT (getLoudness (*picture, 35), 1.0);
    }
}

TEST (MakeStill, ShowsTheLouderOfTwoSignals)
{
    const auto left = makeSine (3000.0, 0.5f, 30000, 44100.0), right = makeQuietNoise (30000);

    for (const auto samplesPerPixel : { 1.0, 100.0, 600.0 })
        for (const auto enhanced : { false, true })
        {
            auto request = makeRequest (left, 5000.0, 40.0 * samplesPerPixel, 40, 100, enhanced);
            const auto first = drawStill (request);
            request.otherSource = std::make_shared<MemorySource> (right);
            const auto both = drawStill (request);
            std::swap (request.source, request.otherSource);
            expectSame (*drawStill (request), *both);
            request.otherSource = nullptr;
            const auto second = drawStill (request);

            for (int x = 0; x < 40; ++x)
                for (int y = 0; y < 100; ++y)
                {
                    const auto louder = std::max (first->getDecibels (x, y), second->getDecibels (x, y));

                    // In Classic a row between two bins may get one of each signal.
                    ASSERT_GE (both->getDecibels (x, y), louder - 1.0e-4f);
                    ASSERT_LE (both->getDecibels (x, y), enhanced ? louder : louder + 6.1f);
                }
        }
}

TEST (MakeStill, ShowsThePointsThatAreKept)
{
    auto signal = makeSine (3000.0, 0.3f, 40000, 44100.0);
    signal[20000] += 0.9f;
    auto request = makeRequest (signal, 10000.0, 20000.0, 100, 200, true);

    const auto levelsOf = [&] (PointsKept kept)
    {
        request.pointsKept = kept;
        const auto picture = drawStill (request);
        const auto row = findLoudestRow (*drawStill (makeRequest (signal, 10000.0, 20000.0, 100, 200, true)), 20);
        return std::pair { picture->getDecibels (20, row), picture->getDecibels (50, row / 2) };
    };

    // The tone far from the click, and the click far from the tone.
    EXPECT_GT (levelsOf (PointsKept::all).first, -20.0f);
    EXPECT_GT (levelsOf (PointsKept::all).second, silenceDb);
    EXPECT_GT (levelsOf (PointsKept::lines).first, -20.0f);
    EXPECT_EQ (levelsOf (PointsKept::clicks).first, silenceDb);
    EXPECT_GT (levelsOf (PointsKept::linesAndClicks).first, -20.0f);
}

TEST (MakeStill, HasNoNumbersThatAreNone)
{
    auto signal = makeQuietNoise (30000);
    signal[5000] = std::numeric_limits<float>::quiet_NaN();
    signal[9000] = std::numeric_limits<float>::infinity();
    signal[12000] = 1.0e38f;

    for (const auto enhanced : { false, true })
    {
        const auto picture = drawStill (makeRequest (signal, 0.0, 30000.0, 50, 20, enhanced));

        for (int x = 0; x < 50; ++x)
            for (int y = 0; y < 20; ++y)
                ASSERT_GE (picture->getDecibels (x, y), silenceDb);
    }
}

TEST (MakeStill, ReportsItsProgressAndStopsWhenItIsTold)
{
    const auto request = makeRequest (makeQuietNoise (200000), 0.0, 200000.0, 400, 100, true);
    double last = -1.0;
    EXPECT_NE (makeStill (request,
                          1,
                          [&last] (double done)
                          {
                              EXPECT_GE (done, last);
                              EXPECT_LE (done, 1.0);
                              last = done;
                              return true;
                          }),
               nullptr);
    EXPECT_EQ (last, 1.0);
    EXPECT_EQ (makeStill (request, 1, [] (double) { return false; }), nullptr);
}

TEST (MakeStill, ThrowsWhatItsSourceThrows)
{
    struct BrokenSource final : SampleSource
    {
        void read (std::int64_t position, std::span<float> destination) override
        {
            if (position > 100000)
                throw std::runtime_error ("broken");

            std::fill (destination.begin(), destination.end(), 0.0f);
        }
    };

    auto request = makeRequest ({}, 0.0, 400000.0, 400, 100, true);
    request.source = std::make_shared<BrokenSource>();
    EXPECT_THROW (std::ignore = drawStill (request), std::runtime_error);
}

} // namespace
} // namespace mk::orlo::test
