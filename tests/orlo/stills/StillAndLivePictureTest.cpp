// SPDX-License-Identifier: AGPL-3.0-or-later
// A still shows what the live picture of the same range shows.
#include "DrawnStill.h"
#include "orlo/analysis/ColumnMapper.h"
#include "orlo/analysis/FrequencyScale.h"
#include "orlo/analysis/SpectralAnalyser.h"
#include "orlo/stills/RenderPlan.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;

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

TEST (StillAndLivePicture, Agree)
{
    constexpr int click = 40000;
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
                const auto first = int ((click - live.firstSample) / hop) - 100; // the click is in the middle
                request.start = live.firstSample + first * hop;
                request.length = double (request.width) * hop;
                const auto still = drawStill (request);

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

} // namespace
} // namespace mk::orlo::test
