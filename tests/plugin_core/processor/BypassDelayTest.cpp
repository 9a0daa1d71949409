// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/processor/BypassDelay.h"

#include <gtest/gtest.h>

namespace mk::pluginCore::test
{
namespace
{

/** 1, 2, 3 ... on the first channel and 101, 102, 103 ... on the second. */
[[nodiscard]] juce::AudioBuffer<float> makeRamp (int first, int numSamples)
{
    juce::AudioBuffer<float> buffer (2, numSamples);

    for (int i = 0; i < numSamples; ++i)
    {
        buffer.setSample (0, i, float (first + i));
        buffer.setSample (1, i, float (100 + first + i));
    }

    return buffer;
}

[[nodiscard]] std::vector<float> channel (const juce::AudioBuffer<float>& buffer, int index)
{
    return { buffer.getReadPointer (index), buffer.getReadPointer (index) + buffer.getNumSamples() };
}

using Values = std::vector<float>;

TEST (BypassDelay, WithoutLatencyTheAudioPassesThrough)
{
    BypassDelay delay;
    delay.prepare ({ 48000.0, 4, 2 }, 0);
    auto buffer = makeRamp (1, 4);
    delay.process (buffer, 0);
    EXPECT_EQ (channel (buffer, 0), (Values { 1, 2, 3, 4 }));
}

TEST (BypassDelay, DelaysEveryChannelByTheLatency)
{
    BypassDelay delay;
    delay.prepare ({ 48000.0, 4, 2 }, 3);
    auto first = makeRamp (1, 4), second = makeRamp (5, 4);
    delay.process (first, 3);
    delay.process (second, 3);
    EXPECT_EQ (channel (first, 0), (Values { 0, 0, 0, 1 }));
    EXPECT_EQ (channel (second, 0), (Values { 2, 3, 4, 5 }));
    EXPECT_EQ (channel (second, 1), (Values { 102, 103, 104, 105 }));
}

TEST (BypassDelay, ALatencyBeyondTheBufferIsClampedToIt)
{
    BypassDelay delay;
    delay.prepare ({ 48000.0, 8, 2 }, 0);
    auto buffer = makeRamp (1, 8);
    delay.process (buffer, 1000);
    EXPECT_EQ (channel (buffer, 0), (Values { 0, 0, 1, 2, 3, 4, 5, 6 }));
}

TEST (BypassDelay, ALatencyThatChangesNeverRepeatsOldAudio)
{
    BypassDelay delay;
    delay.prepare ({ 48000.0, 4, 2 }, 10);
    auto first = makeRamp (1, 4), second = makeRamp (5, 4), third = makeRamp (9, 4);
    delay.process (first, 2);
    delay.process (second, 0);
    delay.process (third, 2);
    EXPECT_EQ (channel (second, 0), (Values { 5, 6, 7, 8 }));
    EXPECT_EQ (channel (third, 0), (Values { 0, 0, 9, 10 }));
}

TEST (BypassDelay, MoreChannelsThanPreparedAreLeftAlone)
{
    BypassDelay delay;
    delay.prepare ({ 48000.0, 4, 1 }, 1);
    auto buffer = makeRamp (1, 4);
    delay.process (buffer, 1);
    EXPECT_EQ (channel (buffer, 0), (Values { 0, 1, 2, 3 }));
    EXPECT_EQ (channel (buffer, 1), (Values { 101, 102, 103, 104 }));
}

} // namespace
} // namespace mk::pluginCore::test
