// SPDX-License-Identifier: AGPL-3.0-or-later
// The time of a column in the image builder, compared with vectorised logarithms alone, and the time
// of painting it, compared with a copy of the picture's bytes.
#include "orlo/analysis/Decibels.h"
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"

#include "benchmarks/support/Measure.h"

#include <cstring>
#include <memory>

namespace mk::orlo::bench
{
namespace
{

constexpr size_t numRows = 1000;
constexpr int numFrames = 64;

/** Frames of noise, and a builder with the default settings: log scale, the whole range, -100 to 0 dB. */
struct Analysis
{
    explicit Analysis (bool enhanced)
    {
        juce::Random random (1);
        worker.setSettings ({ { 2047, 0, int (WindowType::hann) }, 163, enhanced, 0.0f });
        builder.getFrequencyScale().setScaleType (FrequencyScale::log);
        builder.setMaxFreqFraction (1.0f);
        builder.setLevelRange (-100.0f, 0.0f);
        builder.setRequestedSize (1600, int (numRows));
        builder.applyRequestedSize();

        for (Frame frame; frames.size() < numFrames;)
        {
            std::vector<float> block (163);

            for (auto& sample : block)
                sample = random.nextFloat() - 0.5f;

            worker.pushSamples (block.data(), int (block.size()));
            worker.processAvailable();

            if (worker.popFrame (frame) && ++numWarmUp > 20)
                frames.push_back (frame);
        }
    }

    FFTProcessor worker;
    FrameClock clock;
    SpectrogramImageBuilder builder { worker, clock };
    std::vector<Frame> frames;
    Column column;
    size_t next = 0;
    int numWarmUp = 0;
};

void compareColumns (const std::string& name, bool enhanced)
{
    auto analysis = std::make_shared<Analysis> (enhanced);
    auto magnitudes = std::make_shared<std::vector<float>>();
    auto decibels = std::make_shared<std::vector<float>> (numRows);

    for (size_t i = 1; i <= numRows; ++i)
        magnitudes->push_back (analysis->frames[0][i].magnitude);

    compare (
        name,
        [analysis]
        {
            analysis->builder.frameToColumn (analysis->frames[analysis->next++ % numFrames], analysis->column);
            benchmark::DoNotOptimize (analysis->column.data());
        },
        [magnitudes, decibels]
        {
            fastDecibels (magnitudes->data(), decibels->data(), numRows);
            benchmark::DoNotOptimize (decibels->data());
        },
        2.0);
}

void comparePainting()
{
    struct Painting
    {
        SpectrogramRing ring;
        ColourMap map { 2 };
        std::vector<Column> columns { Column (1000) };
        std::vector<char> source = std::vector<char> (1600 * 1000 * 4), target = source;
    };

    auto painting = std::make_shared<Painting>();
    painting->ring.resize (1600, 1000, true);

    for (size_t y = 0; y < 1000; ++y)
        painting->columns[0][y] = float (y % 100) / 100.0f;

    compare (
        "painting a column, 1600 x 1000",
        [painting] { painting->ring.paint (painting->columns, painting->map, SpectrogramRing::background, true); },
        [painting]
        {
            std::memcpy (painting->target.data(), painting->source.data(), painting->source.size());
            benchmark::ClobberMemory();
        },
        1.5);
}

} // namespace

void registerBenchmarks()
{
    compareColumns ("builder column, Enhanced, 1000 rows, 2048", true);
    compareColumns ("builder column, Classic, 1000 rows, 2048", false);
    comparePainting();
}

} // namespace mk::orlo::bench
