// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/parameters/Params.h"
#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/window/CreateEditor.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TemporaryHome.h"

#include <gtest/gtest.h>

#include <cmath>
#include <thread>

namespace mk::orlo::test
{
namespace
{

/** A session that was stored by version 1.2.1, which every later version must be able to read. */
class StoredSession : public testing::Test
{
protected:
    StoredSession()
    {
        const auto file = getTestDataFolder().getChildFile ("sessions/orlo_1.2.1.bin");
        EXPECT_TRUE (file.loadFileAsData (blob));
        processor.applyInitialSettings();
    }

    void restore() { processor.setStateInformation (blob.getData(), int (blob.getSize())); }

    [[nodiscard]] float getValue (const char* id)
    {
        return processor.getParameterState().getRawParameterValue (id)->load();
    }

    const TemporaryHome home;
    juce::MemoryBlock blob;
    AudioPluginAudioProcessor processor { createEditor };
};

TEST_F (StoredSession, RestoresEverythingThatItHolds)
{
    restore();

    EXPECT_FLOAT_EQ (getValue (Params::id::mode), 1.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::fftSize), 5.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::drawMode), 1.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::floor), -72.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::ceiling), -6.0f);
    EXPECT_NEAR (getValue (Params::id::minFreq), 0.12f, 1.0e-6f);
    EXPECT_NEAR (getValue (Params::id::maxFreq), 2.3f, 1.0e-6f);
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 25.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::keyboard), 1.0f);
    EXPECT_FLOAT_EQ (getValue (Params::id::colourMap), 8.0f);

    const auto& presets = processor.getPresetsManager();
    EXPECT_EQ (presets.getCurrentPresetFile(), presets.getUserFolder().getChildFile ("sub/Mine.mkpreset"));
    EXPECT_TRUE (presets.isDirty());

    auto& state = processor.getSessionState();
    EXPECT_EQ (state.pluginEditorWidth, 1200);
    EXPECT_EQ (state.pluginEditorHeight, 661);
    EXPECT_EQ (state.getLockedParams(), (juce::StringArray { "floor", "ceiling" }));
    EXPECT_EQ (state.getData().getTree()["key"].toString(), "value");
    EXPECT_TRUE (processor.getUIView().cleanViewMode.get());
    EXPECT_EQ (processor.getUIView().cleanBounds.get(), "0 0 1000 500");
    EXPECT_EQ (processor.getUIView().normalBounds.get(), "0 0 1200 661");
}

TEST_F (StoredSession, IsStoredAgainByteForByte)
{
    restore();
    juce::MemoryBlock again;
    processor.getStateInformation (again);
    EXPECT_EQ (again, blob) << again.toString();
}

TEST_F (StoredSession, ReachesTheAnalysisFromAnotherThreadToo)
{
    auto& worker = processor.getFftProcessor();
    const auto isFollowing = [&]
    {
        processor.updatePictureSettings();
        return std::abs (worker.getMagnitudeThreshold() - std::pow (10.0f, -3.6f)) < 1.0e-8f;
    };

    EXPECT_FALSE (isFollowing());
    std::thread ([this] { restore(); }).join();
    EXPECT_TRUE (isFollowing());
}

//==============================================================================
TEST_F (StoredSession, CanBeReadAndRestoredOnThreadsOfTheHostWhileTheEditorIsOpen)
{
    constexpr int numRounds = 50;
    const std::unique_ptr<juce::AudioProcessorEditor> editor (processor.createEditor());
    std::atomic<int> numRunning { 3 }, numBroken { 0 };

    const auto run = [&numRunning] (const auto& work)
    {
        return std::thread (
            [&numRunning, work]
            {
                for (int round = 0; round < numRounds; ++round)
                    work();

                numRunning.fetch_sub (1);
            });
    };

    const auto save = [this, &numBroken]
    {
        juce::MemoryBlock saved;
        processor.getStateInformation (saved);

        if (juce::AudioProcessor::getXmlFromBinary (saved.getData(), int (saved.getSize())) == nullptr)
            numBroken.fetch_add (1);
    };

    std::array<std::thread, 3> threads { run ([this] { restore(); }), run ([this] { restore(); }), run (save) };
    int width = 900;

    EXPECT_TRUE (pumpUntil (
        [&]
        {
            editor->setSize (++width, 500);
            processor.getUIView().normalBounds = "0 0 " + juce::String (width) + " 500";
            return numRunning == 0;
        },
        120.0));

    for (auto& thread : threads)
        thread.join();

    pumpPending();
    EXPECT_EQ (numBroken, 0);
    EXPECT_FLOAT_EQ (getValue (Params::id::speed), 25.0f);
}

} // namespace
} // namespace mk::orlo::test
