// SPDX-License-Identifier: AGPL-3.0-or-later
// The time of a column in the image builder, compared with the logarithms that it needs at least, and the time
// of painting it, compared with a copy of the picture's bytes.
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"

#include "benchmarks/support/Measure.h"

#include <cmath>
#include <cstring>
#include <memory>

namespace mk::orlo::bench
{
namespace
{

constexpr int numRows = 1000;
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
        builder.setRequestedSize (1600, numRows);
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

void measureColumns (const std::string& name, bool enhanced, int numLogarithms)
{
    auto analysis = std::make_shared<Analysis> (enhanced);

    measure (name,
             [analysis]
             {
                 analysis->builder.frameToColumn (analysis->frames[analysis->next++ % numFrames], analysis->column);
                 benchmark::DoNotOptimize (analysis->column.data());
             });

    // The logarithms are taken of the same values as those for the columns.
    measure (name + "/limit",
             [analysis, numLogarithms]
             {
                 const auto& frame = analysis->frames[analysis->next++ % numFrames];

                 for (int i = 0; i < numLogarithms; ++i)
                 {
                     auto value = std::log10 (frame[size_t (1 + i % 1023)].magnitude);
                     benchmark::DoNotOptimize (value);
                 }
             });
}

void measurePainting()
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

    measure ("painting a column, 1600 x 1000",
             [painting]
             { painting->ring.paint (painting->columns, painting->map, SpectrogramRing::background, true); });

    measure ("painting a column, 1600 x 1000/limit",
             [painting]
             {
                 std::memcpy (painting->target.data(), painting->source.data(), painting->source.size());
                 benchmark::ClobberMemory();
             });
}

} // namespace

void registerBenchmarks()
{
    measureColumns ("builder column, Enhanced, 1000 rows, 2048", true, 1024);
    measureColumns ("builder column, Classic, 1000 rows, 2048", false, 1000);
    measurePainting();
}

} // namespace mk::orlo::bench
