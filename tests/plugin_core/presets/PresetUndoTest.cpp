// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/state/StateBlob.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/OnParameterChange.h"
#include "tests/support/TestProcessor.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

class PresetUndoTest : public testing::Test
{
protected:
    PresetUndoTest() { processor.applyInitialSettings(); }

    [[nodiscard]] juce::File makePreset (int number)
    {
        const auto floor = juce::String (-number - 1);
        const auto choice = juce::String (number % 4);
        return processor.writePreset (juce::String (number) + ".mkpreset",
                                      { { "floor", floor.toRawUTF8() }, { "choice", choice.toRawUTF8() } });
    }

    /** Does what the parameter state's timer does periodically. */
    void flush() { processor.getParameterState().copyState(); }

    TestProcessor processor;
    pluginCore::PresetsManager& presets = processor.getPresetsManager();
    juce::UndoManager& undo = processor.getUndoManager();
};

TEST_F (PresetUndoTest, UndoRestoresEveryParameterAndTheFormerFile)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), nullptr));
    processor.setValue ("floor", -55.5f);
    processor.setValue ("skewed", 3.25f);
    processor.setValue ("flag", 1.0f);
    const auto former = presets.getCurrentPresetFile();

    ASSERT_TRUE (presets.loadPresetFile (makePreset (2), &undo));
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -3.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 0.0f);

    ASSERT_TRUE (undo.undo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -55.5f);
    EXPECT_NEAR (processor.getValue ("skewed"), 3.25f, 1e-4f);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 1.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("flag"), 1.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), former);
}

TEST_F (PresetUndoTest, UndoLeavesTheDirtyFlagAsItIs)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), nullptr));
    processor.setValue ("floor", -55.5f);
    EXPECT_TRUE (presets.isDirty());

    ASSERT_TRUE (presets.loadPresetFile (makePreset (2), &undo));
    flush();
    EXPECT_FALSE (presets.isDirty());
    ASSERT_TRUE (undo.undo());
    flush();
    EXPECT_FALSE (presets.isDirty());
}

TEST_F (PresetUndoTest, AMoveAfterTheLoadIsUndoneWithIt)
{
    processor.setValue ("floor", -55.5f);
    ASSERT_TRUE (presets.loadPresetFile (makePreset (2), &undo));
    processor.setValue ("floor", -77.0f);
    flush();
    ASSERT_TRUE (undo.undo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -55.5f);
    EXPECT_TRUE (presets.isDirty());
}

TEST_F (PresetUndoTest, UndoOfTheFirstLoadSelectsNoPreset)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), &undo));
    ASSERT_TRUE (undo.undo());
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
}

TEST_F (PresetUndoTest, ThirtyLoadsAreUndoneOneByOneAndRedone)
{
    constexpr int numLoads = 30;

    for (int i = 0; i < numLoads; ++i)
    {
        ASSERT_TRUE (presets.loadPresetFile (makePreset (i), &undo));
        flush();
    }

    for (int i = numLoads - 2; i >= 0; --i)
    {
        ASSERT_TRUE (undo.undo()) << i;
        flush();
        EXPECT_FLOAT_EQ (processor.getValue ("floor"), -float (i) - 1.0f);
        EXPECT_EQ (presets.getCurrentPresetFile().getFileNameWithoutExtension(), juce::String (i));
    }

    ASSERT_TRUE (undo.undo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_FALSE (undo.canUndo());

    for (int i = 0; i < numLoads; ++i)
    {
        ASSERT_TRUE (undo.redo()) << i;
        flush();
        EXPECT_FLOAT_EQ (processor.getValue ("floor"), -float (i) - 1.0f);
        EXPECT_EQ (presets.getCurrentPresetFile().getFileNameWithoutExtension(), juce::String (i));
        EXPECT_FALSE (presets.isDirty());
    }
}

TEST_F (PresetUndoTest, TheHistoryHoldsThirtyThousandUnitsAndThirtyStepsInAnyCase)
{
    class Sized final : public juce::UndoableAction
    {
    public:
        explicit Sized (int unitsToTake) : units (unitsToTake) {}

        bool perform() override { return true; }
        bool undo() override { return true; }
        int getSizeInUnits() override { return units; }

    private:
        const int units;
    };

    const auto countSteps = [this] (int numSteps, int units)
    {
        undo.clearUndoHistory();

        for (int i = 0; i < numSteps; ++i)
        {
            undo.beginNewTransaction();
            undo.perform (new Sized (units));
        }

        int numUndone = 0;

        while (undo.undo())
            ++numUndone;

        return numUndone;
    };

    EXPECT_EQ (countSteps (400, 100), 300);
    EXPECT_EQ (countSteps (40, 10000), 30);
}

TEST_F (PresetUndoTest, AMoveBetweenTwoLoadsIsPartOfTheFirstStep)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), &undo));
    processor.setValue ("floor", -77.0f);
    ASSERT_TRUE (presets.loadPresetFile (makePreset (2), &undo));

    ASSERT_TRUE (undo.undo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -77.0f);
    ASSERT_TRUE (undo.undo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
}

TEST_F (PresetUndoTest, AFileThatCannotBeReadAddsNoStep)
{
    EXPECT_FALSE (presets.loadPresetFile (presets.getUserFolder().getChildFile ("missing.mkpreset"), &undo));
    EXPECT_FALSE (undo.canUndo());
}

TEST_F (PresetUndoTest, ADeletedFileEndsTheRedoHistory)
{
    const auto file = makePreset (1);
    ASSERT_TRUE (presets.loadPresetFile (file, &undo));
    ASSERT_TRUE (undo.undo());
    ASSERT_TRUE (file.deleteFile());
    undo.redo();
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -100.0f);
    EXPECT_EQ (presets.getCurrentPresetFile(), juce::File());
    EXPECT_FALSE (undo.canRedo());
}

TEST_F (PresetUndoTest, UndoRefreshesBothStateCopiesAsPresets)
{
    auto& state = processor.getSessionState();
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), &undo));
    EXPECT_TRUE (state.getSessionStateCopy().isEmpty());
    ASSERT_TRUE (undo.undo());

    const auto expected = pluginCore::writeStateBlob (*processor.getStateXml (false));
    EXPECT_EQ (state.getSessionStateCopy(), expected);
    EXPECT_EQ (state.getPresetStateCopy(), expected);
}

TEST_F (PresetUndoTest, ALockedParameterStaysThroughUndo)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), &undo));
    processor.getSessionState().setLockedParams ({ "floor" });
    ASSERT_TRUE (undo.undo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -2.0f);
    EXPECT_FLOAT_EQ (processor.getValue ("choice"), 1.0f);
}

TEST_F (PresetUndoTest, ARestoredSessionAddsNoStepToUndo)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), &undo));
    processor.restore (*processor.makeSession ({ { "floor", "-40" } }));
    flush();
    EXPECT_FALSE (undo.canUndo());
    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -40.0f);
}

TEST_F (PresetUndoTest, ASessionRestoredInTheMiddleOfAnUndoIsSafe)
{
    ASSERT_TRUE (presets.loadPresetFile (makePreset (1), &undo));
    ASSERT_TRUE (presets.loadPresetFile (makePreset (2), &undo));

    auto session = processor.makeSession ({ { "floor", "-40" } });
    const OnParameterChange host (processor.getParameter ("floor"),
                                  [&]
                                  {
                                      if (const auto once = std::move (session))
                                          processor.restore (*once);
                                  });
    ASSERT_TRUE (undo.undo());

    EXPECT_FLOAT_EQ (processor.getValue ("floor"), -40.0f);
    pumpPending();
    EXPECT_FALSE (undo.canUndo());
}

} // namespace
} // namespace mk::orlo::test
