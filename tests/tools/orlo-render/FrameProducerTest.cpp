// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/FrameProducer.h"

#include "AudioFiles.h"
#include "FileFolder.h"
#include "orlo/analysis/FFTProcessor.h"
#include "tools/orlo-render/RenderError.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using namespace render;

constexpr double rate = 44100.0;
constexpr int length = 60000;

[[nodiscard]] AnalysisSettings makeSettings (const RenderPlan& plan)
{
    return { { plan.windowLength, 0, int (WindowType::hann) }, plan.analysis.samplesPerFrame, true, 0.0f };
}

class FrameProducerTest : public testing::Test
{
protected:
    FrameProducerTest() { writeAudioFile (file, { signal }, rate, 32); }

    const FileFolder folder;
    const juce::File file = folder.getFile ("a.wav");
    const Samples signal = makeNoise (length);
    const RenderPlan plan = makePlan ({ { 1024, rate, 90.0f, false, true }, 0, length, 0 });
    const AnalysisSettings settings = makeSettings (plan);
};

TEST_F (FrameProducerTest, GivesTheSameFramesAsTheWorkerFedOneHopAtATime)
{
    FFTProcessor reference;
    reference.setSettings (settings);

    AudioSource source (file), again (file);
    FrameProducer producer (source, settings, plan);
    std::vector<float> hop (static_cast<size_t> (plan.analysis.samplesPerFrame));
    auto position = plan.feedStart;
    std::int64_t numFrames = 0;

    for (std::vector<Frame> batch; producer.next (batch);)
        for (const auto& frame : batch)
        {
            again.read (position, hop);
            position += plan.analysis.samplesPerFrame;
            reference.pushSamples (hop.data(), plan.analysis.samplesPerFrame);
            reference.processAvailable();

            Frame expected;
            ASSERT_TRUE (reference.popFrame (expected));
            ASSERT_EQ (frame.size(), expected.size());
            ++numFrames;

            for (size_t k = 0; k < frame.size(); ++k)
            {
                ASSERT_EQ (frame[k].magnitude, expected[k].magnitude);

                if (frame[k].magnitude > 1.0e-6f)
                {
                    ASSERT_EQ (frame[k].timeShift, expected[k].timeShift);
                    ASSERT_EQ (frame[k].freqShift, expected[k].freqShift);
                }
            }
        }

    EXPECT_EQ (numFrames, plan.leadFrames + plan.getNumPictureFrames());
}

TEST_F (FrameProducerTest, ReturnsFalseAfterTheLastFrame)
{
    AudioSource source (file);
    FrameProducer producer (source, settings, plan);

    std::vector<Frame> batch;

    while (producer.next (batch))
    {
    }

    EXPECT_FALSE (producer.next (batch));
}

TEST_F (FrameProducerTest, MayBeDestroyedAtAnyTime)
{
    for (int numBatches = 0; numBatches < 6; ++numBatches)
    {
        AudioSource source (file);
        FrameProducer producer (source, settings, plan);
        std::vector<Frame> batch;

        for (int i = 0; i < numBatches; ++i)
            EXPECT_TRUE (producer.next (batch));
    }
}

TEST_F (FrameProducerTest, RethrowsReadErrorsToTheConsumer)
{
    const auto flac = folder.getFile ("a.flac");
    writeAudioFile (flac, { signal }, rate, 16);
    truncateFile (flac, flac.getSize() / 2);

    AudioSource source (flac);
    FrameProducer producer (source, settings, plan);
    std::vector<Frame> batch;

    EXPECT_THROW (while (producer.next (batch)) {}, RenderError);
}

TEST_F (FrameProducerTest, AllowsAHopMuchLongerThanTheWindow)
{
    // 16 ms at 1 MHz: 16000 samples a hop.
    const auto slow = makePlan ({ { 256, 1.0e6, 0.0f, false, false }, 0, 600000, 0 });
    ASSERT_EQ (slow.analysis.samplesPerFrame, 16000);

    AudioSource source (file);
    FrameProducer producer (source, makeSettings (slow), slow);
    std::int64_t numFrames = 0;

    for (std::vector<Frame> batch; producer.next (batch);)
        for (const auto& frame : batch)
            numFrames += frame.size() == 129 ? 1 : 0;

    EXPECT_EQ (numFrames, slow.leadFrames + slow.getNumPictureFrames());
}

} // namespace
} // namespace mk::orlo::test
