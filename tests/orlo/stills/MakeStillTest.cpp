// SPDX-License-Identifier: AGPL-3.0-or-later
// What a still picture shows.
#include "orlo/stills/MakeStill.h"

#include "MemorySource.h"
#include "orlo/analysis/ColumnMapper.h"
#include "orlo/analysis/FrequencyScale.h"
#include "orlo/analysis/SpectralAnalyser.h"
#include "orlo/stills/RenderPlan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <tuple>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;

using Picture = std::shared_ptr<const StillPicture>;

[[nodiscard]] Picture draw (const StillRequest& request, int numThreads = 2)
{
    return makeStill (request, numThreads, [] (double) { return true; });
}

/** The sum of what stands out in a column. */
[[nodiscard]] double getLoudness (const StillPicture& picture, int x)
{
    double sum = 0.0;

    for (int y = 0; y < picture.getHeight(); ++y)
        sum += double (StillPicture::levelFor (picture.getDecibels (x, y), -100.0f, 0.0f));

    return sum;
}

[[nodiscard]] int findLoudestColumn (const StillPicture& picture)
{
    int loudest = 0;

    for (int x = 1; x < picture.getWidth(); ++x)
        if (getLoudness (picture, x) > getLoudness (picture, loudest))
            loudest = x;

    return loudest;
}

[[nodiscard]] int findLoudestRow (const StillPicture& picture, int x)
{
    int loudest = 0;

    for (int y = 1; y < picture.getHeight(); ++y)
        if (picture.getDecibels (x, y) > picture.getDecibels (x, loudest))
            loudest = y;

    return loudest;
}

/** Expects column x of the left picture to be column x + distance of the right one, for all columns that both have. */
void expectSame (const StillPicture& left, const StillPicture& right, int distance = 0)
{
    ASSERT_EQ (left.getHeight(), right.getHeight());

    for (int x = 0; x < std::min (left.getWidth(), right.getWidth() - distance); ++x)
        for (int y = 0; y < left.getHeight(); ++y)
            ASSERT_EQ (left.getDecibels (x, y), right.getDecibels (x + distance, y)) << x << " " << y;
}

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
            const auto picture = draw (request);

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
    const auto picture = draw (request);

    for (const auto distance : { 1, 4, 20 })
    {
        request.start = 20000.0 + distance * samplesPerPixel;
        const auto further = draw (request);
        expectSame (*further, *picture, distance);
    }
}

TEST_P (MakeStillAtZoom, DoesNotDependOnTheNumberOfThreads)
{
    const auto noise = makeQuietNoise (int (100 * samplesPerPixel) + 60000, 3);
    const auto request = makeRequest (noise, 20000.0, 50.0 * samplesPerPixel, 50, 48, enhanced);
    const auto one = draw (request, 1);
    expectSame (*draw (request, 4), *one);
}

TEST_P (MakeStillAtZoom, ZoomingOutAndBackInGivesTheFirstPicture)
{
    const auto noise = makeQuietNoise (int (100 * samplesPerPixel) + 60000, 3);
    auto request = makeRequest (noise, 20000.25, 50.0 * samplesPerPixel, 50, 48, enhanced);
    const auto first = draw (request);

    const auto zoom = [&request] (double factor)
    {
        const auto cursor = 20000.25 + 12.3;
        request.start = cursor - (cursor - request.start) * factor;
        request.length *= factor;
    };

    for (int i = 0; i < 5; ++i)
        zoom (1.3);

    const auto out = draw (request);
    EXPECT_NE (out->getDecibels (3, 20), first->getDecibels (3, 20));

    for (int i = 0; i < 5; ++i)
        zoom (1.0 / 1.3);

    expectSame (*draw (request), *first);
}

INSTANTIATE_TEST_SUITE_P (All,
                          MakeStillAtZoom,
                          testing::Combine (testing::Values (0.25, 1.0, 5.5, 110.25, 163.0, 1653.75), testing::Bool()));

//==============================================================================
/** The columns of the live picture, oldest first, made by the engine hop by hop, and where the first one is. */
struct LivePicture
{
    LivePicture (const Samples& signal, const StillRequest& request)
    {
        const auto hop = planHop (request.hop).samplesPerFrame;
        firstSample = double (hop - getLiveDelay (request.hop)) - hop / 2.0;

        SpectralAnalyser analyser;
        AnalysisSettings settings;
        settings.window.windowLength = request.hop.windowSize - 1;
        settings.hop = hop;
        settings.enhanced = request.hop.enhanced;
        settings.magnitudeThreshold = magnitudeForDecibels (-100.0f);
        analyser.configure (settings.window);

        FrequencyScale scale;
        scale.setScaleType (request.scaleType);
        ColumnMapper mapper;
        Frame frame;

        for (size_t position = 0; position + size_t (hop) <= signal.size(); position += size_t (hop))
        {
            analyser.process (signal.data() + position, settings, rate, frame);
            mapper.map (frame,
                        makeColumnSettings (frame.format, { 0.0f, 1.0f, -100.0f, 0.0f, request.height }),
                        scale,
                        columns.emplace_back());
        }
    }

    double firstSample;
    std::vector<Column> columns;
};

/** A tone of 3 kHz with a click in its middle. */
[[nodiscard]] Samples makeToneWithClick (int click)
{
    auto signal = makeSine (3000.0, 0.3f, 2 * click, rate);
    signal[size_t (click)] += 0.9f;
    return signal;
}

[[nodiscard]] int findLoudest (const Column& column)
{
    return int (std::max_element (column.begin(), column.end()) - column.begin());
}

TEST (MakeStill, AgreesWithTheLivePicture)
{
    constexpr int click = 30000;
    const auto signal = makeToneWithClick (click);

    for (const auto window : { 512, 2048, 4096 })
        for (const auto enhanced : { false, true })
            for (const auto scale : { 0, 1, 2 })
            {
                SCOPED_TRACE (testing::Message() << window << " " << enhanced << " " << scale);
                auto request = makeRequest (signal, 0.0, 1.0, 200, 301, enhanced);
                request.hop.windowSize = window;
                request.scaleType = scale;

                const LivePicture live (signal, request);
                const auto hop = planHop (request.hop).samplesPerFrame;
                constexpr int first = 100;
                request.start = live.firstSample + first * hop;
                request.length = double (request.width) * hop;
                const auto still = draw (request);

                const auto clickColumn = int (std::floor ((click - request.start) / hop));
                EXPECT_NEAR (findLoudestColumn (*still), clickColumn, 1);

                for (int x = 0; x < request.width; ++x)
                {
                    const auto& column = live.columns[size_t (first + x)];

                    // Away from the click, which no window can tell from the tone.
                    if (std::abs (x - clickColumn) * hop < window + hop)
                        continue;

                    const auto row = findLoudest (column);
                    ASSERT_EQ (findLoudestRow (*still, x), row) << x;
                    ASSERT_NEAR (StillPicture::levelFor (still->getDecibels (x, row), -100.0f, 0.0f),
                                 column[size_t (row)],
                                 1.0e-3f)
                        << x;
                }
            }
}

//==============================================================================
TEST (MakeStill, ShowsSilenceAroundTheSound)
{
    for (const auto enhanced : { false, true })
    {
        const auto picture = draw (makeRequest (makeQuietNoise (10000), -30000.0, 60000.0, 60, 20, enhanced));

        for (int y = 0; y < 20; ++y)
        {
            EXPECT_EQ (picture->getDecibels (0, y), silenceDb);
            EXPECT_EQ (picture->getDecibels (59, y), silenceDb);
        }

        EXPECT_GT (getLoudness (*picture, 35), 1.0);
    }
}

TEST (MakeStill, HasNoNumbersThatAreNone)
{
    auto signal = makeQuietNoise (30000);
    signal[5000] = std::numeric_limits<float>::quiet_NaN();
    signal[9000] = std::numeric_limits<float>::infinity();
    signal[12000] = 1.0e38f;

    for (const auto enhanced : { false, true })
    {
        const auto picture = draw (makeRequest (signal, 0.0, 30000.0, 50, 20, enhanced));

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
    EXPECT_THROW (std::ignore = draw (request), std::runtime_error);
}

} // namespace
} // namespace mk::orlo::test
