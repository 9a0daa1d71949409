// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/RenderPlan.h"

#include <gtest/gtest.h>

#include <functional>

namespace mk::orlo::test
{
namespace
{
constexpr std::int64_t start = 1000, length = 100000;

/** Calls the function with a plan for every combination of the parameters. */
void forEachPlan (const std::function<void (const PlanRequest&, const RenderPlan&)>& check)
{
    for (const auto label : { 256, 512, 2048, 8192 })
        for (const auto rate : { 8000.0, 44100.0, 192000.0, 384000.0 })
            for (const auto speed : { 0.0f, 40.0f, 100.0f })
                for (const auto twice : { false, true })
                    for (const auto enhanced : { false, true })
                    {
                        const PlanRequest request { { label, rate, speed, twice, enhanced }, start, length, 0 };
                        SCOPED_TRACE (testing::Message()
                                      << label << " " << rate << " " << speed << " " << twice << " " << enhanced);
                        check (request, makePlan (request));
                    }
}
} // namespace

TEST (RenderPlan, TheColumnsCoverExactlyTheLength)
{
    forEachPlan (
        [] (const PlanRequest&, const RenderPlan& plan)
        {
            EXPECT_EQ (plan.samplesPerColumn, plan.analysis.samplesPerFrame * plan.analysis.framesPerColumn);
            EXPECT_GE (plan.numColumns * plan.samplesPerColumn, length);
            EXPECT_LT ((plan.numColumns - 1) * plan.samplesPerColumn, length);
            EXPECT_EQ (plan.width, plan.numColumns);
        });
}

TEST (RenderPlan, TheFirstFrameOfThePictureIsCentredOnItsHop)
{
    forEachPlan (
        [] (const PlanRequest& request, const RenderPlan& plan)
        {
            if (request.hop.enhanced)
                return;

            // The window lies at the end of the hop, or at its start if the hop is longer than the window.
            const auto hop = plan.analysis.samplesPerFrame;
            const auto half = plan.windowLength / 2;
            const auto frameStart = plan.feedStart + plan.leadFrames * hop;
            const auto centre = hop < plan.windowLength ? frameStart + hop - half : frameStart + half;
            EXPECT_EQ (centre, start + hop / 2);
        });
}

TEST (RenderPlan, EveryWindowOfThePictureIsFullOfAudio)
{
    forEachPlan (
        [] (const PlanRequest& request, const RenderPlan& plan)
        {
            // In Enhanced, frames up to a window's length earlier also add to the first column.
            const auto span = request.hop.enhanced ? plan.windowLength : 0;
            const auto firstFrame =
                plan.leadFrames - (span + plan.analysis.samplesPerFrame - 1) / plan.analysis.samplesPerFrame;
            EXPECT_GE ((firstFrame + 1) * plan.analysis.samplesPerFrame, plan.windowLength - 1);
        });
}

TEST (RenderPlan, AWidthLimitsThePictureButNotTheNumberOfColumns)
{
    PlanRequest request { { 2048, 44100.0, 40.0f, false, false }, 0, 44100, 0 };
    const auto whole = makePlan (request);
    ASSERT_EQ (whole.numColumns, 271); // 163 samples each

    request.width = 100;
    EXPECT_EQ (makePlan (request).width, 100);
    EXPECT_EQ (makePlan (request).numColumns, 271);

    request.width = 1000;
    EXPECT_EQ (makePlan (request).width, 271);
}

TEST (RenderPlan, DoubleResolutionDoublesTheColumns)
{
    PlanRequest request { { 2048, 44100.0, 40.0f, false, true }, 0, 1000000, 0 };
    const auto normal = makePlan (request);
    request.hop.doubleResolution = true;
    const auto twice = makePlan (request);
    EXPECT_NEAR (double (twice.numColumns) / double (normal.numColumns), 2.0, 0.03);
}

TEST (RenderPlan, WidthIsZeroIfItWouldExceedAnInt)
{
    const auto plan = makePlan ({ { 2048, 44100.0, 40.0f, false, false }, 0, std::int64_t (1) << 50, 0 });
    EXPECT_EQ (plan.width, 0);
    EXPECT_GT (plan.numColumns, std::int64_t (1) << 40);
}

TEST (RenderPlan, AnExtremelyLowSampleRateGivesNoHop)
{
    const auto plan = makePlan ({ { 2048, 10.0, 40.0f, false, false }, 0, 1000, 0 });
    EXPECT_EQ (plan.analysis.samplesPerFrame, 0);
    EXPECT_EQ (plan.width, 0);
}

} // namespace mk::orlo::test
