// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/LevelBar.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (LevelBar, LabelsRoundLevelsFromTheTopDown)
{
    const auto labels = placeLevelLabels (-100.0f, 0.0f, 500, 40.0f);
    ASSERT_EQ (labels.size(), 11u);
    EXPECT_EQ (labels.front().decibels, 0);
    EXPECT_FLOAT_EQ (labels.front().y, 0.0f);
    EXPECT_EQ (labels[1].decibels, -10);
    EXPECT_FLOAT_EQ (labels[1].y, 50.0f);
    EXPECT_EQ (labels.back().decibels, -100);
    EXPECT_FLOAT_EQ (labels.back().y, 500.0f);

    EXPECT_EQ (placeLevelLabels (-100.0f, 0.0f, 200, 40.0f)[1].decibels, -20);
    EXPECT_EQ (placeLevelLabels (-57.0f, -13.0f, 500, 40.0f).front().decibels, -15);
}

TEST (LevelBar, OfAnInvertedPictureIsLabelledTheSame)
{
    EXPECT_EQ (placeLevelLabels (0.0f, -100.0f, 500, 40.0f).size(), 11u);
}

TEST (LevelBar, WithoutARangeHasNoLabels)
{
    EXPECT_TRUE (placeLevelLabels (-50.0f, -50.0f, 500, 40.0f).empty());
    EXPECT_TRUE (placeLevelLabels (-100.0f, 0.0f, 0, 40.0f).empty());
    EXPECT_TRUE (placeLevelLabels (-100.0f, 0.0f, 500, 0.0f).empty());
}

} // namespace
} // namespace mk::orlo::test
