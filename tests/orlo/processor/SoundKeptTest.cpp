// SPDX-License-Identifier: AGPL-3.0-or-later
// The sound that the processor keeps for a window.
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 48000.0;

/** A host with a song of 120 quarters a minute in three-four time. */
struct SongPlayHead final : juce::AudioPlayHead
{
    juce::Optional<PositionInfo> getPosition() const override
    {
        PositionInfo info;
        info.setIsPlaying (playing);
        info.setPpqPosition (quarters);
        info.setPpqPositionOfLastBarStart (3.0);
        info.setBpm (120.0);
        info.setTimeSignature (TimeSignature { 3, 4 });
        return info;
    }

    bool playing = true;
    double quarters = 4.0;
};

class SoundKept : public testing::Test
{
protected:
    SoundKept()
    {
        processor.prepareToPlay (rate, 512);
        processor.setAnalysisSuspended (false);
    }

    ~SoundKept() override { changeSetting ({}); }

    static void changeSetting (const juce::var& value)
    {
        const pluginCore::PluginGlobalSettings settings;

        if (value.isVoid())
            settings.getSettings().removeProperty (pluginCore::SettingsIds::historySeconds, nullptr);
        else
            settings.getSettings().setProperty (pluginCore::SettingsIds::historySeconds, value, nullptr);
    }

    void set (const char* id, float value)
    {
        auto& parameter = *processor.getParameterState().getParameter (id);
        parameter.setValueNotifyingHost (parameter.convertTo0to1 (value));
    }

    /** Plays a block in which both channels have a value of their own. */
    void play (float left, float right, int numSamples = 100)
    {
        juce::AudioBuffer<float> buffer (2, numSamples);

        for (int i = 0; i < numSamples; ++i)
        {
            buffer.setSample (0, i, left);
            buffer.setSample (1, i, right);
        }

        juce::MidiBuffer midi;
        processor.processBlock (buffer, midi);
    }

    [[nodiscard]] std::shared_ptr<const KeptSound> getSound() const { return processor.getSoundHistory().getSound(); }

    const pluginCore::PluginGlobalSettings keepsSettings;
    AudioPluginAudioProcessor processor;
};

TEST_F (SoundKept, OnlyWhileAWindowWantsItAndWhatIsAnalysed)
{
    play (0.5f, 0.25f);
    EXPECT_EQ (getSound(), nullptr);

    processor.setSoundKept (true);
    ASSERT_NE (getSound(), nullptr);
    EXPECT_EQ (double (getSound()->getCapacity()), 60.0 * rate);
    EXPECT_EQ (getSound()->getSampleRate(), rate);

    play (0.5f, 0.25f);
    set (Params::id::freeze, 1.0f);
    EXPECT_TRUE (processor.isFrozen());
    play (0.1f, 0.1f);
    set (Params::id::freeze, 0.0f);
    EXPECT_FALSE (processor.isFrozen());
    processor.setAnalysisSuspended (true);
    play (0.1f, 0.1f);
    processor.setAnalysisSuspended (false);
    play (0.75f, -0.25f);

    ASSERT_EQ (getSound()->getEnd(), 200);

    for (const auto& [channel, position, value] :
         { std::tuple { 0, 0, 0.5f }, { 1, 0, 0.25f }, { 0, 99, 0.5f }, { 0, 100, 0.75f }, { 1, 199, -0.25f } })
    {
        float sample = 0.0f;
        ASSERT_TRUE (getSound()->read (channel, position, &sample, 1));
        EXPECT_EQ (sample, value) << channel << " " << position;
    }

    processor.setSoundKept (false);
    EXPECT_EQ (getSound(), nullptr);
}

TEST_F (SoundKept, FrozenStaysForTheNextWindow)
{
    processor.setSoundKept (true);
    play (0.5f, 0.25f);
    set (Params::id::freeze, 1.0f);
    processor.setSoundKept (false);
    ASSERT_NE (getSound(), nullptr);

    processor.setSoundKept (true);
    EXPECT_EQ (getSound()->getEnd(), 100);
    set (Params::id::freeze, 0.0f);
    processor.setSoundKept (false);
    EXPECT_EQ (getSound(), nullptr);
}

TEST_F (SoundKept, PausedByTheHostIsFrozenToo)
{
    SongPlayHead head;
    processor.setPlayHead (&head);
    set (Params::id::autoFreeze, 1.0f);
    processor.setSoundKept (true);
    play (0.5f, 0.25f);
    head.playing = false;
    play (0.5f, 0.25f);
    EXPECT_TRUE (processor.isFrozen());
    EXPECT_EQ (getSound()->getEnd(), 100);

    processor.setSoundKept (false);
    EXPECT_NE (getSound(), nullptr);
    processor.setPlayHead (nullptr);
}

TEST_F (SoundKept, IsAsLongAsTheUserSays)
{
    for (const auto& [setting, seconds] : { std::pair { "5", 5.0 }, { "0.5", 0.5 }, { "99999", 600.0 } })
    {
        changeSetting (setting);
        processor.setSoundKept (true);
        ASSERT_NE (getSound(), nullptr) << setting;
        EXPECT_EQ (double (getSound()->getCapacity()), seconds * rate);
    }

    for (const auto* const setting : { "0", "-1", "", "much" })
    {
        changeSetting (setting);
        processor.setSoundKept (true);
        EXPECT_EQ (getSound(), nullptr) << setting;
    }
}

TEST_F (SoundKept, StartsAnewWithAnotherRateOrAnotherNumberOfChannels)
{
    processor.setSoundKept (true);
    play (0.5f, 0.25f);
    processor.prepareToPlay (rate, 256);
    EXPECT_EQ (getSound()->getEnd(), 100);

    processor.prepareToPlay (96000.0, 512);
    EXPECT_EQ (getSound()->getEnd(), 0);
    EXPECT_EQ (getSound()->getSampleRate(), 96000.0);
    EXPECT_EQ (getSound()->getNumChannels(), 2);

    ASSERT_TRUE (processor.setBusesLayout ({ { juce::AudioChannelSet::mono() }, { juce::AudioChannelSet::mono() } }));
    processor.prepareToPlay (96000.0, 512);
    EXPECT_EQ (getSound()->getNumChannels(), 1);
}

TEST_F (SoundKept, KnowsTheHostsTimeWhileTheSongPlays)
{
    SongPlayHead head;
    processor.setPlayHead (&head);
    processor.setSoundKept (true);
    play (0.5f, 0.25f, 240);
    head.quarters += 0.01; // 240 samples
    play (0.5f, 0.25f, 240);
    head.playing = false;
    play (0.5f, 0.25f, 240);
    processor.setPlayHead (nullptr);
    play (0.5f, 0.25f, 240);

    const auto note = getSound()->getHostNote (300);
    ASSERT_TRUE (note.isKnown());
    EXPECT_EQ (note.position, 0);
    EXPECT_NEAR (note.getQuartersAt (480, rate), 4.02, 1.0e-9);
    EXPECT_EQ (note.barStart, 3.0);
    EXPECT_EQ (note.quartersPerMinute, 120.0);
    EXPECT_EQ (note.numerator, 3);
    EXPECT_EQ (note.denominator, 4);
    EXPECT_FALSE (getSound()->getHostNote (500).isKnown());
    EXPECT_EQ (getSound()->getHostNotes().size(), 2u);
}

} // namespace
} // namespace mk::orlo::test
