// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-host/PluginPlayer.h"
#include "tests/hosts/support/FakePlugin.h"
#include "tests/hosts/support/RampTrack.h"
#include "tests/support/MessageLoop.h"
#include "tools/orlo-host/TimedOutput.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
constexpr int trackLength = RampTrack::length;
constexpr double trackRate = RampTrack::sampleRate;

class PluginPlayer : public testing::Test
{
protected:
    /** The output for a sound card with this many channels. */
    [[nodiscard]] juce::AudioBuffer<float> play (int numChannels, int numSamples)
    {
        juce::AudioBuffer<float> output (numChannels, numSamples);

        for (int channel = 0; channel < numChannels; ++channel)
            juce::FloatVectorOperations::fill (output.getWritePointer (channel), 9.0f, numSamples);

        player.process (output.getArrayOfWritePointers(), numChannels, numSamples);
        return output;
    }

    FakePlugin plugin;
    host::PluginPlayer player { plugin, RampTrack::make() };
};

TEST_F (PluginPlayer, LoopsTheTrackThroughThePlugin)
{
    player.prepare (trackRate, 256);

    for (int first = 0; first < 10 * 256; first += 256)
    {
        const auto output = play (2, 256);

        for (int i = 0; i < 256; ++i)
        {
            const auto expected = float ((first + i) % trackLength) / trackLength;
            ASSERT_EQ (output.getSample (0, i), expected) << first + i;
            ASSERT_EQ (output.getSample (1, i), -expected) << first + i;
        }
    }
}

TEST_F (PluginPlayer, HasATransportThatLoopsOverTheTrack)
{
    player.prepare (trackRate, 400);

    for (int block = 0; block < 4; ++block)
        static_cast<void> (play (2, 400));

    ASSERT_EQ (plugin.blocks.size(), 4u);

    for (size_t i = 0; i < 4; ++i)
    {
        EXPECT_TRUE (plugin.blocks[i].playing);
        EXPECT_EQ (plugin.blocks[i].time, juce::int64 (i) * 400 % trackLength);
    }
}

TEST_F (PluginPlayer, SplitsBlocksThatAreLongerThanAnnounced)
{
    player.prepare (trackRate, 100);
    const auto output = play (2, 250);

    ASSERT_EQ (plugin.blocks.size(), 3u);
    EXPECT_EQ (plugin.blocks[0].size, 100);
    EXPECT_EQ (plugin.blocks[1].size, 100);
    EXPECT_EQ (plugin.blocks[2].size, 50);

    for (int i = 0; i < 250; ++i)
        ASSERT_EQ (output.getSample (0, i), float (i) / trackLength);
}

TEST_F (PluginPlayer, ServesSoundCardsWithFewerAndMoreChannels)
{
    player.prepare (trackRate, 256);
    EXPECT_EQ (play (1, 256).getSample (0, 10), 10.0f / trackLength);

    const auto output = play (4, 256);
    EXPECT_EQ (output.getSample (1, 10), -266.0f / trackLength);
    EXPECT_EQ (output.getMagnitude (2, 0, 256), 0.0f);
    EXPECT_EQ (output.getMagnitude (3, 0, 256), 0.0f);

    player.process (nullptr, 0, 256);
    EXPECT_EQ (plugin.blocks.size(), 3u);
}

TEST_F (PluginPlayer, ResamplesTheTrackToTheSoundCardsRate)
{
    player.prepare (trackRate * 2.0, 256);
    const auto output = play (2, 256);

    // The ramp is half as steep.
    EXPECT_NEAR (output.getSample (0, 200) - output.getSample (0, 100), 50.0f / trackLength, 2.0e-3f);

    for (int played = 256; played < 2 * trackLength; played += 256)
        static_cast<void> (play (2, 256));

    EXPECT_EQ (plugin.getPlayHead()->getPosition()->getTimeInSamples(), 2048 - 2 * trackLength);
}

TEST_F (PluginPlayer, PreparesAndReleasesThePluginInPairs)
{
    player.prepare (trackRate, 256);
    player.prepare (44100.0, 64);
    player.release();
    player.release();

    EXPECT_THAT (plugin.calls, testing::ElementsAre ("prepare 48000 256", "release", "prepare 44100 64", "release"));
}

TEST_F (PluginPlayer, ResetsThePluginsPlayHeadAtItsEnd)
{
    EXPECT_NE (plugin.getPlayHead(), nullptr);

    {
        FakePlugin other;
        {
            const host::PluginPlayer shortLived (other, RampTrack::make());
        }
        EXPECT_EQ (other.getPlayHead(), nullptr);
    }
}

TEST_F (PluginPlayer, PlaysInRealTimeWithoutASoundCard)
{
    constexpr int numBlocks = 20;
    const auto start = juce::Time::getMillisecondCounterHiRes();

    {
        const host::TimedOutput output (player);
        ASSERT_TRUE (pumpUntil ([this] { return plugin.numBlocks.load (std::memory_order_acquire) >= numBlocks; }));
    }

    const auto seconds = (juce::Time::getMillisecondCounterHiRes() - start) / 1000.0;
    const auto blockSeconds = host::TimedOutput::blockSize / trackRate;

    // The player is never ahead of real time by more than the block that starts it. A busy machine may be behind.
    EXPECT_LE (double (plugin.blocks.size()), seconds / blockSeconds + 1.0);
    EXPECT_EQ (plugin.calls.front(), "prepare 48000 512");
    EXPECT_EQ (plugin.blocks.front().size, host::TimedOutput::blockSize);
}
} // namespace
} // namespace mk::orlo::test
