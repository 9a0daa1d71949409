// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/Renderer.h"

#include "AudioFiles.h"
#include "FileFolder.h"
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"
#include "tools/orlo-render/RenderError.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;

constexpr double rate = 44100.0;

[[nodiscard]] bool goOn (double) { return true; }

class RendererTest : public testing::Test
{
protected:
    RendererTest()
    {
        settings.hop.sampleRate = rate;
        settings.height = 200;
    }

    /** The levels of a part of the signal. */
    [[nodiscard]] LevelGrid render (int width = 0, std::int64_t start = 0, std::int64_t length = -1)
    {
        if (! file.exists())
            writeAudioFile (file, { signal }, rate, 32);

        AudioSource source (file);
        plan = makePlan ({ settings.hop, start, length < 0 ? source.getLength() - start : length, width });
        return renderLevels (source, plan, settings, 2, goOn);
    }

    /** The same levels, column by column, made by the engine without the renderer. Starts with the engine's first
        column, long before the picture. */
    [[nodiscard]] std::vector<Column> renderByHand()
    {
        FFTProcessor worker;
        worker.prepareToPlay (rate);
        worker.setSettings ({ { plan.windowLength, 0, int (WindowType::hann) },
                              plan.analysis.samplesPerFrame,
                              settings.hop.enhanced,
                              std::pow (10.0f, std::min (settings.floorDb, settings.ceilingDb) / 20.0f) });

        const FrameClock clock;
        SpectrogramImageBuilder builder (worker, clock);
        builder.setRequestedSize (1, settings.height);
        builder.setMinFreqFraction (settings.minFreqFraction);
        builder.setMaxFreqFraction (settings.maxFreqFraction);
        builder.setLevelRange (settings.floorDb, settings.ceilingDb);
        builder.getFrequencyScale().setScaleType (settings.scaleType);
        builder.applyRequestedSize();

        std::vector<Column> columns;
        Frame frame;
        Column column;

        const auto numSamples = (plan.leadFrames + plan.getNumPictureFrames()) * plan.analysis.samplesPerFrame;

        for (auto n = plan.feedStart; n < plan.feedStart + numSamples; ++n)
        {
            const auto sample = n >= 0 && n < std::int64_t (signal.size()) ? signal[size_t (n)] : 0.0f;
            worker.pushSamples (&sample, 1);
            worker.processAvailable();

            while (worker.popFrame (frame))
            {
                builder.frameToColumn (frame, column);
                columns.push_back (column);
            }
        }

        return columns;
    }

    const FileFolder folder;
    const juce::File file = folder.getFile ("a.wav");
    Samples signal = makeQuietNoise (20000);
    RenderSettings settings;
    RenderPlan plan;
};

/** Tests both modes, every scale, and the floor below and above the ceiling. */
TEST_F (RendererTest, GivesTheEnginesColumnsMergedByMaximum)
{
    settings.minFreqFraction = 0.01f;
    settings.maxFreqFraction = 0.9f;

    for (const auto enhanced : { false, true })
        for (const auto crossed : { false, true })
            for (const auto width : { 0, 17 })
                for (int scale = 0; scale < 5; ++scale)
                {
                    settings.hop.enhanced = enhanced;
                    settings.hop.speed = enhanced ? 0.0f : 40.0f; // several frames a column in Enhanced
                    settings.floorDb = crossed ? -20.0f : -110.0f;
                    settings.ceilingDb = crossed ? -90.0f : -10.0f;
                    settings.scaleType = scale;
                    SCOPED_TRACE (testing::Message() << enhanced << " " << crossed << " " << width << " " << scale);

                    const auto grid = render (width);
                    const auto byHand = renderByHand();
                    ASSERT_EQ (std::int64_t (byHand.size()), plan.leadFrames + plan.getNumPictureFrames());
                    ASSERT_EQ (plan.analysis.framesPerColumn > 1, enhanced);
                    LevelGrid expected (plan.width, settings.height);

                    for (std::int64_t i = 0; i < plan.numColumns; ++i)
                        for (int frame = 0; frame < plan.analysis.framesPerColumn; ++frame)
                        {
                            const auto x = int (i * plan.width / plan.numColumns);
                            const auto& levels =
                                byHand[size_t (plan.leadFrames + i * plan.analysis.framesPerColumn + frame)];
                            Column merged (size_t (settings.height));

                            for (int y = 0; y < settings.height; ++y)
                                merged[size_t (y)] = std::max (expected.get (x, y), levels[size_t (y)]);

                            expected.setColumn (x, merged);
                        }

                    ASSERT_EQ (grid.getWidth(), plan.width);

                    for (int x = 0; x < plan.width; ++x)
                        for (int y = 0; y < settings.height; ++y)
                            ASSERT_EQ (grid.get (x, y), expected.get (x, y)) << x << " " << y;
                }
}

/** The share of a grid's energy, estimated from the levels, that lies in one column. */
[[nodiscard]] int findLoudestColumn (const LevelGrid& grid)
{
    int loudest = 0;
    float most = -1.0f;

    for (int x = 0; x < grid.getWidth(); ++x)
    {
        float sum = 0.0f;

        for (int y = 0; y < grid.getHeight(); ++y)
            sum += grid.get (x, y);

        if (sum > most)
        {
            most = sum;
            loudest = x;
        }
    }

    return loudest;
}

TEST_F (RendererTest, AClickIsInTheColumnOfItsTimeAtEveryWindowSpeedAndMode)
{
    for (const auto label : { 256, 2048, 8192 })
        for (const auto speed : { 0.0f, 40.0f, 100.0f })
            for (const auto enhanced : { false, true })
                for (const auto position : { 40, 5000, 10003, 19950 })
                {
                    settings.hop = { label, rate, speed, false, enhanced };
                    signal = makeImpulse (position, 20000);
                    file.deleteFile();

                    // In the middle of the column, so that rounding does not move it to the next one.
                    const auto samplesPerColumn = makePlan ({ settings.hop, 0, 20000, 0 }).samplesPerColumn;
                    const auto column = position / samplesPerColumn;
                    const auto centre = column * samplesPerColumn + samplesPerColumn / 2;

                    if (centre >= 20000)
                        continue;

                    signal = makeImpulse (int (centre), 20000);
                    EXPECT_EQ (findLoudestColumn (render()), column) << label << " " << speed << " " << enhanced;
                }
}

TEST_F (RendererTest, EnhancedShowsTheFirstAndTheLastSampleOfTheFile)
{
    settings.hop.enhanced = true;

    for (const auto position : { 0, 19999 })
    {
        signal = makeImpulse (position, 20000);
        file.deleteFile();
        const auto grid = render();
        EXPECT_EQ (findLoudestColumn (grid), position == 0 ? 0 : grid.getWidth() - 1);
    }
}

TEST_F (RendererTest, ASectionLooksAsInThePictureOfTheWholeFile)
{
    for (const auto enhanced : { false, true })
    {
        settings.hop.enhanced = enhanced;
        const auto whole = render();
        const auto perColumn = plan.samplesPerColumn;
        const auto section = render (0, 30 * perColumn, 20 * perColumn);
        ASSERT_EQ (section.getWidth(), 20);

        for (int x = 0; x < 20; ++x)
            for (int y = 0; y < settings.height; ++y)
                ASSERT_EQ (section.get (x, y), whole.get (30 + x, y)) << enhanced << " " << x << " " << y;
    }
}

TEST_F (RendererTest, SilenceIsBlack)
{
    signal.assign (20000, 0.0f);

    for (const auto enhanced : { false, true })
    {
        settings.hop.enhanced = enhanced;
        const auto grid = render();

        for (int x = 0; x < grid.getWidth(); ++x)
            for (int y = 0; y < settings.height; ++y)
                ASSERT_EQ (grid.get (x, y), 0.0f);
    }
}

TEST_F (RendererTest, LevelsStayInRangeIfTheAudioHasNaNsAndInfinities)
{
    signal[5000] = std::numeric_limits<float>::quiet_NaN();
    signal[9000] = std::numeric_limits<float>::infinity();
    signal[12000] = 1.0e38f;

    for (const auto enhanced : { false, true })
    {
        settings.hop.enhanced = enhanced;
        const auto grid = render (50);

        for (int x = 0; x < grid.getWidth(); ++x)
            for (int y = 0; y < settings.height; ++y)
                ASSERT_TRUE (grid.get (x, y) >= 0.0f && grid.get (x, y) <= 1.0f);
    }
}

TEST_F (RendererTest, TheProgressNeverFallsEndsWithOneAndCanStopTheWork)
{
    signal = makeQuietNoise (200000);
    writeAudioFile (file, { signal }, rate, 32);
    AudioSource source (file);
    plan = makePlan ({ settings.hop, 0, source.getLength(), 0 });

    double last = 0.0;
    juce::ignoreUnused (renderLevels (source,
                                      plan,
                                      settings,
                                      2,
                                      [&] (double done)
                                      {
                                          EXPECT_GE (done, last);
                                          last = done;
                                          return true;
                                      }));
    EXPECT_EQ (last, 1.0);

    AudioSource again (file);
    EXPECT_THROW (juce::ignoreUnused (renderLevels (again, plan, settings, 2, [] (double done) { return done < 0.3; })),
                  RenderError);
}

} // namespace
} // namespace mk::orlo::test
