// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/HopPlan.h"

#include "tests/support/GoldenVectors.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{

TEST (HopPlan, MatchesTheReferenceForEveryWindowRateSpeedAndMode)
{
    const auto table = loadJson ("golden/hop.json");
    ASSERT_GT (table.size(), 1000);

    for (const auto& row : *table.getArray())
    {
        const auto plan = planHop ({ int (row["label"]),
                                     double (row["sampleRate"]),
                                     float (row["speed"]),
                                     bool (int (row["hiDPI"])),
                                     bool (int (row["enhanced"])) });

        const auto context = juce::JSON::toString (row, true).toStdString();
        const auto expectedMs = float (row["msPerColumn"]);
        EXPECT_NEAR (plan.secondsPerColumn * 1000.0f, expectedMs, expectedMs * 1.0e-5f) << context;
        EXPECT_EQ (plan.samplesPerColumn, int (row["samplesPerColumn"])) << context;
        EXPECT_EQ (plan.samplesPerFrame, int (row["hop"])) << context;
        EXPECT_EQ (plan.framesPerColumn, int (row["framesPerColumn"])) << context;
    }
}

TEST (HopPlan, ClassicAtFullSpeedHopsByTheColumnAtAnyWindow)
{
    for (const auto label : { 256, 512, 1024, 2048, 4096, 8192 })
    {
        const auto plan = planHop ({ label, 44100.0, 100.0f, false, false });
        EXPECT_EQ (plan.samplesPerColumn, 110);
        EXPECT_EQ (plan.samplesPerFrame, 110);
        EXPECT_EQ (plan.framesPerColumn, 1);
    }
}

TEST (HopPlan, AColumnShorterThanTheOverlapStillEndsInAHop)
{
    // 10 samples a column at 16-fold overlap.
    const auto plan = planHop ({ 2048, 8000.0, 100.0f, true, true });
    EXPECT_EQ (plan.samplesPerColumn, 10);
    EXPECT_EQ (plan.samplesPerFrame, 10);
    EXPECT_EQ (plan.framesPerColumn, 1);
}

TEST (HopPlan, WithoutAWindowSizeTheSmallestEnhancedHopIsUsed)
{
    EXPECT_EQ (planHop ({ 0, 44100.0, 0.0f, false, true }).samplesPerFrame, 88);
}

TEST (HopPlan, SpeedsBeyondTheRangeAreClamped)
{
    EXPECT_FLOAT_EQ (planHop ({ 2048, 44100.0, 150.0f, false, true }).secondsPerColumn, 0.0025f);
    EXPECT_FLOAT_EQ (planHop ({ 2048, 44100.0, -50.0f, false, true }).secondsPerColumn, 0.016f);
}

TEST (HopPlan, ARateOfZeroGivesNoHop)
{
    for (const auto enhanced : { false, true })
    {
        const auto plan = planHop ({ 2048, 0.0, 40.0f, false, enhanced });
        EXPECT_EQ (plan.samplesPerFrame, 0);
        EXPECT_EQ (plan.framesPerColumn, 1);
    }
}

} // namespace mk::orlo::test
