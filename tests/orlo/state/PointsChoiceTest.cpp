// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/state/PointsChoice.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (PointsChoice, IsAllAndLeavesNothingInTheDataUntilTheUserChooses)
{
    juce::ValueTree data ("Data");
    const data::PointsChoice choice (data);
    EXPECT_EQ (choice.get(), PointsKept::all);
    EXPECT_EQ (data.getNumProperties(), 0);
}

TEST (PointsChoice, ReadsBackWhatItHasStored)
{
    for (const auto chosen : { PointsKept::lines, PointsKept::clicks, PointsKept::linesAndClicks })
    {
        juce::ValueTree data ("Data");
        juce::UndoManager undo;
        data::PointsChoice (data).set (chosen, undo);
        EXPECT_EQ (data::PointsChoice (data).get(), chosen);
    }
}

TEST (PointsChoice, FollowsTheDataAndLeavesThemAsTheyWereWhenAllAreChosenAgain)
{
    juce::ValueTree data ("Data");
    juce::UndoManager undo;
    data::PointsChoice choice (data);
    data.setProperty (data::PointsChoice::property, "clicks", nullptr);
    EXPECT_EQ (choice.get(), PointsKept::clicks);
    data.setProperty (data::PointsChoice::property, "nonsense", nullptr);
    EXPECT_EQ (choice.get(), PointsKept::all);
    choice.set (PointsKept::lines, undo);
    choice.set (PointsKept::all, undo);
    EXPECT_EQ (data.getNumProperties(), 0);
}

TEST (PointsChoice, IsOneStepOfUndoAndNoneIfNothingChanges)
{
    juce::ValueTree data ("Data");
    juce::UndoManager undo;
    data::PointsChoice choice (data);
    choice.set (PointsKept::all, undo);
    EXPECT_FALSE (undo.canUndo());
    choice.set (PointsKept::lines, undo);
    choice.set (PointsKept::clicks, undo);
    ASSERT_TRUE (undo.undo());
    EXPECT_EQ (choice.get(), PointsKept::lines);
    ASSERT_TRUE (undo.undo());
    EXPECT_EQ (choice.get(), PointsKept::all);
}

} // namespace
} // namespace mk::orlo::test
