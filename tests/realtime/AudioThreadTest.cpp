// SPDX-License-Identifier: AGPL-3.0-or-later
// What the audio thread does on every path of the audio callback, counted by machine.
#include "RealtimeGuard.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include <gtest/gtest.h>

#include <mutex>

namespace mk::orlo::test
{
namespace
{

TEST (RealtimeGuard, CatchesEveryWayToAllocateAndLock)
{
    const auto countOf = [] (auto&& action)
    {
        const RealtimeGuard guard;
        action();
        return guard.getViolations();
    };

    EXPECT_EQ (countOf ([] {}).allocations, 0);
    EXPECT_GE (countOf (
                   []
                   {
                       const std::vector<float> planted (100);
                       EXPECT_EQ (planted.size(), 100u);
                   })
                   .allocations,
               2);
    EXPECT_GE (countOf (
                   []
                   {
                       const juce::String planted (12345678);
                       EXPECT_EQ (planted.length(), 8);
                   })
                   .allocations,
               2);
    EXPECT_GE (countOf (
                   []
                   {
                       const juce::HeapBlock<char> planted (64, true);
                       EXPECT_EQ (planted[3], 0);
                   })
                   .allocations,
               2);

    std::mutex mutex;
    EXPECT_EQ (countOf ([&] { const std::scoped_lock lock (mutex); }).locks, 1);
    juce::CriticalSection section;
    EXPECT_EQ (countOf ([&] { const juce::ScopedLock lock (section); }).locks, 1);

    // Another thread's doings are not this one's.
    const RealtimeGuard guard;
    EXPECT_EQ (guard.getViolations().locks, 0);
}

struct PlayingPlayHead final : juce::AudioPlayHead
{
    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (true);
        return info;
    }
};

class AudioThreadTest : public testing::Test
{
protected:
    AudioThreadTest()
    {
        processor.setPlayHead (&playHead);
        processor.prepareToPlay (48000.0, 512);
        processor.getFftProcessor().hopSize = 177;
        processor.setAnalysisSuspended (false);
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    /** Runs some blocks and gives back the worst of them. */
    [[nodiscard]] RealtimeViolations
        worstOf (int numBlocks, int numSamples = 512, int numChannels = 2, bool bypassed = false)
    {
        juce::AudioBuffer<float> buffer (numChannels, numSamples);
        buffer.clear();

        for (int i = 0; i < numSamples; ++i)
            buffer.setSample (0, i, 0.25f);

        RealtimeViolations worst;

        for (int i = 0; i < numBlocks; ++i)
        {
            const RealtimeGuard guard;

            if (bypassed)
                processor.processBlockBypassed (buffer, midi);
            else
                processor.processBlock (buffer, midi);

            worst.allocations = std::max (worst.allocations, guard.getViolations().allocations);
            worst.locks = std::max (worst.locks, guard.getViolations().locks);
        }

        return worst;
    }

    /** The wake-up of the worker takes the one lock that is allowed, once a block. */
    static void expectOnlyTheWakeUp (RealtimeViolations worst)
    {
        EXPECT_EQ (worst.allocations, 0);
        EXPECT_LE (worst.locks, 1);
    }

    static void expectNothing (RealtimeViolations worst)
    {
        EXPECT_EQ (worst.allocations, 0);
        EXPECT_EQ (worst.locks, 0);
    }

    PlayingPlayHead playHead;
    AudioPluginAudioProcessor processor;
    juce::MidiBuffer midi;
};

TEST_F (AudioThreadTest, AnalysingTakesNothingButTheWakeUp)
{
    for (const auto numSamples : { 0, 1, 64, 512 })
        expectOnlyTheWakeUp (worstOf (200, numSamples));

    // The guard would have seen a lock, had it not been the wake-up's.
    EXPECT_EQ (worstOf (200).locks, 1);
}

TEST_F (AudioThreadTest, AMonoLayoutTakesNothingButTheWakeUp)
{
    ASSERT_TRUE (processor.setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    processor.prepareToPlay (48000.0, 512);
    expectOnlyTheWakeUp (worstOf (200, 512, 1));
}

TEST_F (AudioThreadTest, SuspendedAndBypassedTakeNothing)
{
    expectNothing (worstOf (50, 512, 2, true));
    processor.setAnalysisSuspended (true);
    expectNothing (worstOf (50));
    expectNothing (worstOf (50, 512, 2, true));
}

TEST_F (AudioThreadTest, FrozenAndAutoPausedTakeNothing)
{
    set (Params::id::freeze, 1.0f);
    expectNothing (worstOf (50));
    set (Params::id::freeze, 0.0f);

    set (Params::id::autoFreeze, 1.0f);
    expectOnlyTheWakeUp (worstOf (50));
    processor.setPlayHead (nullptr);
    expectOnlyTheWakeUp (worstOf (50));
}

TEST_F (AudioThreadTest, ChangingTheWindowAndTheModeTakesNothingButTheWakeUp)
{
    for (int i = 0; i < 40; ++i)
    {
        set (Params::id::fftSize, float (i % 10));
        set (Params::id::mode, float (i % 2));
        expectOnlyTheWakeUp (worstOf (5));
    }
}

TEST_F (AudioThreadTest, AFullRingTakesNothingButTheWakeUp)
{
    processor.getFftProcessor().stopThread (1000);
    expectOnlyTheWakeUp (worstOf (2 * 163840 / 512));
}

TEST_F (AudioThreadTest, AStateThatWasReplacedTakesNothingMore)
{
    juce::MemoryBlock state;
    processor.getStateInformation (state);
    processor.setStateInformation (state.getData(), int (state.getSize()));
    expectOnlyTheWakeUp (worstOf (50));
}

TEST_F (AudioThreadTest, WithoutARateTheBlockIsClearedAndNothingElse)
{
    AudioPluginAudioProcessor unprepared;
    unprepared.setAnalysisSuspended (false);
    juce::AudioBuffer<float> buffer (2, 512);
    const RealtimeGuard guard;
    unprepared.processBlock (buffer, midi);
    expectNothing (guard.getViolations());
}

} // namespace
} // namespace mk::orlo::test
