// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/StillWork.h"

#include "MemorySource.h"
#include "orlo/stills/StillScales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{

/** Does the work on this thread and collects its pictures. */
[[nodiscard]] std::vector<std::shared_ptr<const StillPicture>> doAll (const StillRequest& request,
                                                                      StillWork::Coarse coarse)
{
    std::vector<std::shared_ptr<const StillPicture>> pictures;
    StillWork work (
        request,
        makeStillScale (request),
        std::make_shared<StillMemory>(),
        coarse,
        [&] (std::shared_ptr<const StillPicture> picture) { pictures.push_back (std::move (picture)); },
        [] (const std::exception_ptr&) { ADD_FAILURE(); });

    while (! work.isFinished())
    {
        EXPECT_TRUE (work.hasWork());
        EXPECT_NE (work.run(), StillJob::Outcome::nothingToDo);
    }

    EXPECT_FALSE (work.hasWork());
    EXPECT_EQ (work.run(), StillJob::Outcome::nothingToDo);
    EXPECT_EQ (work.getProgress(), 1.0);
    return pictures;
}

TEST (StillWork, MakesACoarsePictureFirstIfTheWholeTakesLong)
{
    auto request = makeRequest (makeQuietNoise (1200000), 0.0, 1200000.0, 603, 20, true);

    for (const auto enhanced : { true, false })
    {
        request.hop.enhanced = enhanced;
        request.hop.windowSize = enhanced ? 2048 : 8192;
        const auto pictures = doAll (request, StillWork::Coarse::ifSlow);
        ASSERT_EQ (pictures.size(), 2u);
        EXPECT_TRUE (pictures[0]->isCoarse());
        EXPECT_FALSE (pictures[1]->isCoarse());

        const auto inOne = doAll (request, StillWork::Coarse::never);
        ASSERT_EQ (inOne.size(), 1u);

        for (int y = 0; y < 20; ++y)
            for (int x = 0; x < 603; ++x)
            {
                ASSERT_EQ (pictures[1]->getDecibels (x, y), inOne[0]->getDecibels (x, y)) << x << " " << y;

                // The coarse picture has a part of the frames, and shows the loudest of eight columns in each.
                ASSERT_EQ (pictures[0]->getDecibels (x, y), pictures[0]->getDecibels (x - x % 8, y));

                ASSERT_TRUE (enhanced || x % 8 != 0
                             || ! (std::abs (pictures[0]->getDecibels (x, y) - inOne[0]->getDecibels (x, y)) > 0.0f));
            }
    }
}

TEST (StillWork, MakesAQuickPictureAtOnce)
{
    const auto request = makeRequest (makeQuietNoise (100000), 0.0, 100000.0, 500, 20, true);
    EXPECT_EQ (doAll (request, StillWork::Coarse::ifSlow).size(), 1u);
}

TEST (StillScales, KeepTheNewestOfTheRequestsRange)
{
    StillScales scales;
    auto request = makeRequest ({}, 0.0, 100.0, 10, 10, true);
    request.minFreqFraction = 0.1f;
    request.scaleType = FrequencyScale::mel;
    const auto first = scales.obtain (request);
    EXPECT_FLOAT_EQ (first->getMinFrequency(), 2205.0f);
    EXPECT_FLOAT_EQ (first->getMaxFrequency(), 22050.0f);
    EXPECT_EQ (first->getScaleType(), FrequencyScale::mel);
    EXPECT_EQ (scales.obtain (request), first);

    auto other = request;

    for (const auto maxFraction : { 0.5f, 0.6f, 0.7f })
    {
        other.maxFreqFraction = maxFraction;
        EXPECT_FLOAT_EQ (scales.obtain (other)->getMaxFrequency(), maxFraction * 22050.0f);
    }

    EXPECT_EQ (scales.obtain (request), first);
    request.scaleType = FrequencyScale::log;
    EXPECT_EQ (scales.obtain (request)->getScaleType(), FrequencyScale::log);
}

TEST (StillWork, ThatIsCancelledDoesNothingMore)
{
    const auto request = makeRequest (makeQuietNoise (100000), 0.0, 100000.0, 500, 20, true);
    StillWork work (
        request,
        makeStillScale (request),
        std::make_shared<StillMemory>(),
        StillWork::Coarse::never,
        [] (const auto&) { ADD_FAILURE(); },
        [] (const auto&) { ADD_FAILURE(); });
    work.run();
    const auto done = work.getProgress();
    EXPECT_GT (done, 0.0);
    EXPECT_LT (done, 1.0);

    work.cancel();
    EXPECT_TRUE (work.isFinished());
    EXPECT_FALSE (work.hasWork());
    EXPECT_EQ (work.run(), StillJob::Outcome::nothingToDo);
    EXPECT_EQ (work.getProgress(), done);
}

TEST (StillWork, ReadsTheSourceFromFrontToBack)
{
    struct OrderedSource final : SampleSource
    {
        void read (std::int64_t position, std::span<float> destination) override
        {
            EXPECT_GE (position, end);
            end = position + std::int64_t (destination.size());
            numRead += std::int64_t (destination.size());
            std::fill (destination.begin(), destination.end(), 0.0f);
        }

        std::int64_t end = std::numeric_limits<std::int64_t>::min(), numRead = 0;
    };

    for (const auto samplesPerPixel : { 0.3, 3.0, 300.0, 30000.0 })
        for (const auto enhanced : { false, true })
        {
            const auto source = std::make_shared<OrderedSource>();
            auto request = makeRequest ({}, 1000.0, 100.0 * samplesPerPixel, 100, 10, enhanced);
            request.source = source;
            EXPECT_EQ (doAll (request, StillWork::Coarse::never).size(), 1u);
            EXPECT_LE (double (source->numRead), 103.0 * samplesPerPixel + 3 * 2048);
        }
}

} // namespace
} // namespace mk::orlo::test
