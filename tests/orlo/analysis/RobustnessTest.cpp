// SPDX-License-Identifier: AGPL-3.0-or-later
// Tests that the picture stays finite and in its bounds for any input of a host, and recovers.
#include "orlo/analysis/FFTProcessor.h"
#include "orlo/analysis/HopPlan.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"

#include "tests/support/Sanitizers.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{

/** The whole analysis without threads, from samples to columns. */
class Pipeline
{
public:
    Pipeline (int label, double rate, float speed, bool enhanced, int numRows = 200)
    {
        const auto plan = planHop ({ label, rate, speed, false, enhanced });
        worker.prepareToPlay (rate);
        worker.setSettings ({ { label - 1, 0, int (WindowType::hann) }, plan.samplesPerFrame, enhanced, 0.0f });
        builder.setFramesPerColumn (plan.framesPerColumn);
        builder.setMaxFreqFraction (1.0f);
        builder.setLevelRange (-100.0f, 0.0f);
        builder.setRequestedSize (300, numRows);
        builder.applyRequestedSize();
    }

    void push (const Samples& samples, int blockSize)
    {
        for (size_t start = 0; start < samples.size(); start += size_t (blockSize))
        {
            worker.pushSamples (samples.data() + start, int (std::min (size_t (blockSize), samples.size() - start)));
            worker.processAvailable();

            for (Frame frame; worker.popFrame (frame);)
            {
                builder.frameToColumn (frame, column);
                columns.push_back (column);
            }
        }
    }

    FFTProcessor worker;
    FrameClock clock;
    SpectrogramImageBuilder builder { worker, clock };
    Column column;
    std::vector<Column> columns;
};

void expectFinite (const std::vector<Column>& columns)
{
    for (const auto& column : columns)
        for (const auto level : column)
            ASSERT_TRUE (level >= 0.0f && level <= 1.0f);
}

/** The row of the loudest level. */
[[nodiscard]] size_t loudestRow (const Column& column)
{
    return size_t (std::max_element (column.begin(), column.end()) - column.begin());
}

[[nodiscard]] Samples makeHostile (const std::string& kind, int numSamples)
{
    Samples samples (size_t (numSamples), 0.0f);

    for (size_t i = 0; i < samples.size(); ++i)
    {
        if (kind == "dc")
            samples[i] = 1.0f;
        else if (kind == "square")
            samples[i] = (i / 50) % 2 == 0 ? 1.0f : -1.0f;
        else if (kind == "denormals")
            samples[i] = i % 2 == 0 ? 1.0e-40f : -3.0e-41f;
        else if (kind == "nan")
            samples[i] = i % 100 == 0 ? std::numeric_limits<float>::quiet_NaN() : 0.1f;
        else if (kind == "infinity")
            samples[i] = i % 100 == 0 ? std::numeric_limits<float>::infinity() : 0.1f;
        else if (kind == "huge")
            samples[i] = i % 2 == 0 ? std::numeric_limits<float>::max() : std::numeric_limits<float>::lowest();
    }

    return samples;
}

class HostileInputTest : public testing::TestWithParam<std::tuple<std::string, bool>>
{
};

TEST_P (HostileInputTest, GivesAFinitePictureAndLeavesNoTraceInLaterCleanInput)
{
    const auto& [kind, enhanced] = GetParam();
    Pipeline pipeline (2048, 44100.0, 40.0f, enhanced);
    pipeline.push (makeHostile (kind, 20000), 512);
    ASSERT_FALSE (pipeline.columns.empty());
    expectFinite (pipeline.columns);

    // Once window and history hold only clean samples, the columns equal those of a fresh pipeline.
    const auto clean = makeSine (5000.0, 0.5f, 20000, 44100.0);
    pipeline.columns.clear();
    pipeline.push (clean, 512);

    Pipeline fresh (2048, 44100.0, 40.0f, enhanced);
    fresh.push (Samples (20000, 0.0f), 512);
    fresh.columns.clear();
    fresh.push (clean, 512);

    ASSERT_EQ (pipeline.columns.size(), fresh.columns.size());

    for (size_t i = 40; i < fresh.columns.size(); ++i)
        EXPECT_EQ (pipeline.columns[i], fresh.columns[i]) << i;
}

INSTANTIATE_TEST_SUITE_P (
    Inputs,
    HostileInputTest,
    testing::Combine (testing::Values ("silence", "dc", "square", "denormals", "nan", "infinity", "huge"),
                      testing::Bool()),
    [] (const auto& test) { return std::get<0> (test.param) + (std::get<1> (test.param) ? "Enhanced" : "Classic"); });

TEST (Robustness, SilenceIsBlack)
{
    for (const auto enhanced : { false, true })
    {
        Pipeline pipeline (2048, 44100.0, 40.0f, enhanced);
        pipeline.push (Samples (20000, 0.0f), 512);
        ASSERT_EQ (pipeline.columns.size(), 20000u / 163u);

        for (const auto& column : pipeline.columns)
            EXPECT_EQ (column, Column (200, 0.0f));
    }
}

TEST (Robustness, ColumnsDoNotDependOnTheHostsBlockSize)
{
    const auto signal = makeReferenceSignal ("noise", 30000, 48000.0);
    Pipeline reference (1024, 48000.0, 40.0f, true);
    reference.push (signal, 512);

    for (const auto blockSize : { 1, 13, 8192 })
    {
        Pipeline pipeline (1024, 48000.0, 40.0f, true);
        pipeline.push (signal, blockSize);
        EXPECT_EQ (pipeline.columns, reference.columns) << blockSize;
    }
}

TEST (Robustness, EveryRateWindowAndSpeedPaintsASineAtItsFrequency)
{
    // Everything runs on one thread, so that ThreadSanitizer has nothing to find in it.
    if (hasThreadSanitizer)
        GTEST_SKIP() << "not under ThreadSanitizer";

    for (const auto rate : { 8000.0, 44100.0, 192000.0, 384000.0 })
        for (const auto label : { 256, 8192 })
            for (const auto speed : { 0.0f, 100.0f })
                for (const auto enhanced : { false, true })
                {
                    // A quarter of the way to Nyquist.
                    Pipeline pipeline (label, rate, speed, enhanced, 401);
                    pipeline.push (makeSine (rate / 8.0, 0.5f, 40000, rate), 8192);
                    ASSERT_GT (pipeline.columns.size(), 5u) << rate << " " << label << " " << speed;
                    expectFinite (pipeline.columns);
                    pipeline.builder.getFrequencyScale().setScaleType (FrequencyScale::linear);
                    EXPECT_NEAR (double (loudestRow (pipeline.columns.back())), 300.0, 3.0)
                        << rate << " " << label << " " << speed << " " << enhanced;
                }
}

TEST (Robustness, PicturesOfOneRowAndOfNoRowsAreValid)
{
    for (const auto enhanced : { false, true })
        for (const auto numRows : { 0, 1 })
        {
            Pipeline pipeline (512, 44100.0, 40.0f, enhanced, numRows);
            pipeline.push (makeReferenceSignal ("noise", 10000, 44100.0), 512);
            expectFinite (pipeline.columns);
            EXPECT_EQ (pipeline.columns.back().size(), size_t (numRows));
        }
}

} // namespace
} // namespace mk::orlo::test
