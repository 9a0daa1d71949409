// SPDX-License-Identifier: AGPL-3.0-or-later
// Counts the allocations and locks of the audio thread on every path of the audio callback.
#include "RealtimeGuard.h"

#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>

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

    // A new guard starts at zero.
    const RealtimeGuard guard;
    EXPECT_EQ (guard.getViolations().locks, 0);
}

struct PlayingPlayHead final : juce::AudioPlayHead
{
    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (true);
        info.setPpqPosition (quarters += 1.0); // a jump in every block
        info.setBpm (120.0);
        return info;
    }

    mutable double quarters = 0.0;
};

class AudioThreadTest : public testing::Test
{
protected:
    AudioThreadTest()
    {
        processor.setPlayHead (&playHead);
        processor.prepareToPlay (48000.0, 512);
        processor.getFftProcessor().setHop (177);
        processor.setAnalysisSuspended (false);
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    /** Runs some blocks and returns the worst counts of any of them. */
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

    /** One lock a block is allowed: the one that wakes up the worker. */
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
    AudioPluginAudioProcessor processor { createEditor };
    juce::MidiBuffer midi;
};

TEST_F (AudioThreadTest, AnalysingLocksOnlyForTheWakeUp)
{
    for (const auto numSamples : { 0, 1, 64, 512 })
        expectOnlyTheWakeUp (worstOf (200, numSamples));

    // The wake-up's own lock is counted, which shows that the guard sees locks on this path.
    EXPECT_EQ (worstOf (200).locks, 1);
}

TEST_F (AudioThreadTest, KeepingTheSoundLocksOnlyForTheWakeUp)
{
    processor.setSoundKept (true);

    for (const auto numSamples : { 0, 1, 64, 511, 512 })
        expectOnlyTheWakeUp (worstOf (200, numSamples));

    EXPECT_GT (processor.getSoundHistory().getSound()->getEnd(), 0);
    EXPECT_GT (processor.getSoundHistory().getSound()->getHostNotes().size(), 100u);

    // Another rate starts anew.
    processor.prepareToPlay (44100.0, 512);
    expectOnlyTheWakeUp (worstOf (200));
    processor.setSoundKept (false);
    expectOnlyTheWakeUp (worstOf (200));
}

TEST_F (AudioThreadTest, AMonoLayoutLocksOnlyForTheWakeUp)
{
    ASSERT_TRUE (processor.setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    processor.prepareToPlay (48000.0, 512);
    expectOnlyTheWakeUp (worstOf (200, 512, 1));
}

TEST_F (AudioThreadTest, SuspendedAndBypassedBlocksNeitherLockNorAllocate)
{
    expectNothing (worstOf (50, 512, 2, true));
    processor.setAnalysisSuspended (true);
    expectNothing (worstOf (50));
    expectNothing (worstOf (50, 512, 2, true));
}

TEST_F (AudioThreadTest, FrozenAndAutoPausedBlocksNeitherLockNorAllocate)
{
    set (Params::id::freeze, 1.0f);
    expectNothing (worstOf (50));
    set (Params::id::freeze, 0.0f);

    set (Params::id::autoFreeze, 1.0f);
    expectOnlyTheWakeUp (worstOf (50));
    processor.setPlayHead (nullptr);
    expectOnlyTheWakeUp (worstOf (50));
}

TEST_F (AudioThreadTest, ChangingTheWindowAndTheModeLocksOnlyForTheWakeUp)
{
    for (int i = 0; i < 40; ++i)
    {
        set (Params::id::fftSize, float (i % 10));
        set (Params::id::mode, float (i % 2));
        expectOnlyTheWakeUp (worstOf (5));
    }
}

TEST_F (AudioThreadTest, ChangingTheSourceLocksOnlyForTheWakeUp)
{
    for (int i = 0; i < 24; ++i)
    {
        processor.getUIView().setSource (Source (i % 6));
        processor.updatePictureSettings();
        expectOnlyTheWakeUp (worstOf (5));
    }
}

TEST_F (AudioThreadTest, AFullSampleRingLocksOnlyForTheWakeUp)
{
    processor.getFftProcessor().stopThread (1000);
    expectOnlyTheWakeUp (worstOf (2 * 163840 / 512));
}

TEST_F (AudioThreadTest, AReplacedStateLocksOnlyForTheWakeUp)
{
    juce::MemoryBlock state;
    processor.getStateInformation (state);
    processor.setStateInformation (state.getData(), int (state.getSize()));
    expectOnlyTheWakeUp (worstOf (50));
}

TEST_F (AudioThreadTest, ClearingABlockBeforeTheRateIsKnownNeitherLocksNorAllocates)
{
    AudioPluginAudioProcessor unprepared;
    unprepared.setAnalysisSuspended (false);
    juce::AudioBuffer<float> buffer (2, 512);
    const RealtimeGuard guard;
    unprepared.processBlock (buffer, midi);
    expectNothing (guard.getViolations());
}

//==============================================================================
/** Measures the framework's own cost of a parameter change: the same parameters, each with an empty listener. */
class BareProcessor final : public juce::AudioProcessor, private juce::AudioProcessorValueTreeState::Listener
{
public:
    BareProcessor()
    {
        for (const auto* parameter : getParameters())
            state.addParameterListener (dynamic_cast<const juce::AudioProcessorParameterWithID&> (*parameter).paramID,
                                        this);
    }

    void parameterChanged (const juce::String&, float) override {}
    void prepareToPlay (double, int) override {}
    void releaseResources() override {}
    void processBlock (juce::AudioBuffer<float>&, juce::MidiBuffer&) override {}
    const juce::String getName() const override { return {}; }
    double getTailLengthSeconds() const override { return 0.0; }
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    bool hasEditor() const override { return false; }
    juce::AudioProcessorEditor* createEditor() override { return nullptr; }
    int getNumPrograms() override { return 1; }
    int getCurrentProgram() override { return 0; }
    void setCurrentProgram (int) override {}
    const juce::String getProgramName (int) override { return {}; }
    void changeProgramName (int, const juce::String&) override {}
    void getStateInformation (juce::MemoryBlock&) override {}
    void setStateInformation (const void*, int) override {}

private:
    juce::AudioProcessorValueTreeState state { *this, nullptr, "bare", Params::createLayout() };
};

/** Processes blocks on a separate audio thread and sets every parameter before each of them, as a host does that
    automates from within the callback. Returns the worst counts of any block. */
[[nodiscard]] RealtimeViolations worstOfAutomation (juce::AudioProcessor& processor)
{
    RealtimeViolations worst;

    const auto play = [&]
    {
        juce::AudioBuffer<float> buffer (2, 512);
        buffer.clear();
        juce::MidiBuffer midi;

        // The framework's list of a parameter's listeners allocates at the parameter's first change, which a switch
        // or a choice makes only when its value has come half way.
        constexpr int numBlocks = 200, numWarmUp = 14;

        for (int i = 0; i < numBlocks + numWarmUp; ++i)
        {
            const RealtimeGuard guard;

            for (auto* parameter : processor.getParameters())
                parameter->setValueNotifyingHost (float (i % 7) / 6.0f);

            processor.processBlock (buffer, midi);

            if (i >= numWarmUp)
            {
                worst.allocations = std::max (worst.allocations, guard.getViolations().allocations);
                worst.locks = std::max (worst.locks, guard.getViolations().locks);
            }
        }
    };

    std::thread (play).join();
    return worst;
}

class AutomationTest : public AudioThreadTest
{
protected:
    AutomationTest() { processor.applyInitialSettings(); }

    /** The framework locks for each value, which no plug-in can avoid, so those locks are allowed. */
    void expectNothingButTheFrameworksLocks()
    {
        BareProcessor bare;
        ASSERT_EQ (bare.getParameters().size(), processor.getParameters().size());
        const auto framework = worstOfAutomation (bare);
        EXPECT_EQ (framework.allocations, 0);

        const auto worst = worstOfAutomation (processor);
        EXPECT_EQ (worst.allocations, 0);
        EXPECT_LE (worst.locks, framework.locks + 1); // one for the wake-up
    }

    /** Whether the last values reach the frequency scale on the message thread. */
    [[nodiscard]] bool doValuesArrive()
    {
        const auto& parameter = *processor.getParameterState().getParameter (Params::id::freqScale);
        const auto wanted = juce::roundToInt (parameter.convertFrom0to1 (parameter.getValue()));
        processor.updatePictureSettings();
        return processor.getImageBuilder().getFrequencyScale().getScaleType() == wanted;
    }
};

TEST_F (AutomationTest, FromInsideTheCallbackAddsNoLocksWithoutAnEditor)
{
    expectNothingButTheFrameworksLocks();
    EXPECT_TRUE (doValuesArrive());
}

TEST_F (AutomationTest, FromInsideTheCallbackAddsNoLocksWithAnOpenEditor)
{
    const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditorIfNeeded());
    editor->addToDesktop (juce::ComponentPeer::windowIsTemporary);
    editor->setVisible (true);
    ASSERT_TRUE (pumpUntil ([&] { return editor->isShowing(); }));

    expectNothingButTheFrameworksLocks();
    EXPECT_TRUE (doValuesArrive());
}

//==============================================================================
TEST (AnalysisThreads, AllocateNothingOnceAllBuffersHaveTheirSize)
{
    FFTProcessor worker;
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    Frame frame;
    const std::vector<float> samples (512, 0.25f);

    const auto analyse = [&] (int numBlocks)
    {
        for (int i = 0; i < numBlocks; ++i)
        {
            worker.pushSamples (samples.data(), int (samples.size()));
            worker.processAvailable();

            while (worker.popFrame (frame))
                mapper.map (
                    frame, makeColumnSettings (frame.format, { 0.0f, 1.0f, -100.0f, 0.0f, 300 }), scale, column);
        }
    };

    // Long enough for every reused vector to have held a frame.
    worker.setSettings ({ { 2047, 0, int (WindowType::hann) }, 128, true, 1.0e-5f });
    analyse (100);

    const RealtimeGuard guard;
    analyse (100);
    EXPECT_EQ (guard.getViolations().allocations, 0);
}

} // namespace
} // namespace mk::orlo::test
