// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/standalone/StandaloneProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 48000.0;
constexpr int blockSize = 64;

[[nodiscard]] juce::AudioBuffer<float> makeConstant (float value)
{
    juce::AudioBuffer<float> buffer (2, blockSize);

    for (int channel = 0; channel < 2; ++channel)
        juce::FloatVectorOperations::fill (buffer.getWritePointer (channel), value, blockSize);

    return buffer;
}

/** What comes out for an input of 0.5. */
[[nodiscard]] juce::AudioBuffer<float> play (StandaloneProcessor& processor)
{
    processor.setRateAndBufferSizeDetails (rate, blockSize);
    processor.prepareToPlay (rate, blockSize);
    auto buffer = makeConstant (0.5f);
    juce::MidiBuffer midi;
    processor.processBlock (buffer, midi);
    processor.releaseResources();
    return buffer;
}

TEST (StandaloneProcessor, DoesNotPlayTheSoundInputBack)
{
    StandaloneProcessor processor;
    EXPECT_EQ (play (processor).getMagnitude (0, blockSize), 0.0f);
}

TEST (StandaloneProcessor, PlaysAudioInsteadOfTheInput)
{
    LoopedAudio audio (makeConstant (0.25f), rate);
    StandaloneProcessor::setAudio (&audio);
    StandaloneProcessor processor;
    StandaloneProcessor::setAudio (nullptr);

    const auto heard = play (processor);
    EXPECT_EQ (heard.getSample (0, blockSize - 1), 0.25f);
    EXPECT_EQ (heard.getSample (1, 0), 0.25f);
}
} // namespace
} // namespace mk::orlo::test
