// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/StillPlan.h"

#include "orlo/stills/FrameOrder.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace mk::orlo::test
{
namespace
{
/** Calls the function with plans of all zooms, windows and modes. */
void forEachPlan (const std::function<void (const StillRequest&, const StillPlan&)>& check)
{
    for (const auto window : { 256, 2048, 8192 })
        for (const auto enhanced : { false, true })
            for (const auto speed : { 0.0f, 40.0f, 100.0f })
                for (const auto samplesPerPixel : { 0.01, 0.14, 0.999, 1.0, 1.3, 7.77, 110.25, 163.0, 1653.75, 1.0e6 })
                    for (const auto start : { 0.0, -5000.3, 1.0e7 + 0.75 })
                    {
                        StillRequest request;
                        request.start = start;
                        request.width = 333;
                        request.height = 10;
                        request.length = samplesPerPixel * request.width;
                        request.hop = { window, 44100.0, speed, false, enhanced };
                        SCOPED_TRACE (testing::Message() << window << " " << enhanced << " " << speed << " "
                                                         << samplesPerPixel << " " << start);
                        check (request, makeStillPlan (request));
                    }
}

TEST (StillPlan, EachPixelShowsTheColumnOfItsTime)
{
    forEachPlan (
        [] (const StillRequest& request, const StillPlan& plan)
        {
            ASSERT_GE (plan.samplesPerColumn, 1.0);

            for (int x = 0; x < request.width; ++x)
            {
                const auto column = getColumnOfPixel (plan, request, x);
                ASSERT_GE (column, 0);
                ASSERT_LT (column, plan.numColumns);

                const auto middle = request.start + (x + 0.5) * request.getSamplesPerPixel();
                const auto start = plan.firstSample + column * plan.samplesPerColumn;
                ASSERT_GE (middle, start - 1.0e-5);
                ASSERT_LE (middle, start + plan.samplesPerColumn + 1.0e-5);
            }
        });
}

TEST (StillPlan, FramesAreCentredInTheirPartsAndNoneStandsTwice)
{
    forEachPlan (
        [] (const StillRequest&, const StillPlan& plan)
        {
            auto before = std::numeric_limits<std::int64_t>::min();

            for (std::int64_t column = -plan.margin; column < plan.numColumns + plan.margin;
                 column += std::max<std::int64_t> (1, plan.getNumFrameColumns() / 500))
                for (int part = 0; part < std::min (plan.framesPerColumn, 3); ++part)
                {
                    const auto centre = plan.getCentre (column, part);
                    ASSERT_GT (centre, before);
                    before = centre;

                    // Half a sample or less from the middle of the part.
                    const auto wanted = double (column) + (part + 0.5) / plan.framesPerColumn;
                    ASSERT_NEAR (plan.getColumnPosition (centre), wanted, 0.5 / plan.samplesPerColumn + 1.0e-5);
                }
        });
}

TEST (StillPlan, HopsAreAtMostAQuarterLongerThanTheLivePictures)
{
    forEachPlan (
        [] (const StillRequest& request, const StillPlan& plan)
        {
            const auto hop = std::max (1, planHop (request.hop).samplesPerFrame);
            EXPECT_LE (plan.samplesPerColumn / plan.framesPerColumn, 1.25 * hop + 1.0);
            EXPECT_GE (plan.samplesPerColumn / plan.framesPerColumn, 1.0);
        });
}

TEST (StillPlan, FramesBesideThePictureReachItsEdges)
{
    forEachPlan (
        [] (const StillRequest& request, const StillPlan& plan)
        {
            const auto left = plan.getCentre (-plan.margin, 0);
            const auto right = plan.getCentre (plan.numColumns + plan.margin - 1, plan.framesPerColumn - 1);

            if (request.hop.enhanced)
            {
                const auto hop = plan.samplesPerColumn / plan.framesPerColumn;
                EXPECT_LE (double (left), plan.firstSample - plan.getHalf() + hop + 1.0);
                EXPECT_GE (double (right),
                           plan.firstSample + plan.numColumns * plan.samplesPerColumn + plan.getHalf() - hop - 1.0);
            }
            else
            {
                EXPECT_EQ (plan.margin, 0);
            }
        });
}

TEST (FrameOrder, TheEighthsAndTheOthersAreAllFramesOnce)
{
    for (const auto margin : { 0, 1, 7, 8, 20 })
        for (const auto numColumns : { 1, 7, 8, 9, 100 })
            for (const auto framesPerColumn : { 1, 3 })
            {
                StillPlan plan;
                plan.margin = margin;
                plan.numColumns = numColumns;
                plan.framesPerColumn = framesPerColumn;
                std::set<std::pair<std::int64_t, int>> places;

                for (const auto which : { FrameOrder::Which::everyEighth, FrameOrder::Which::others })
                {
                    const FrameOrder order (plan, which);
                    auto before = std::numeric_limits<std::int64_t>::min();

                    for (std::int64_t i = 0; i < order.getNumFrames(); ++i)
                    {
                        const auto place = order.getPlace (i);
                        EXPECT_GE (place.column, before);
                        EXPECT_EQ (place.column % FrameOrder::coarseness == 0, which == FrameOrder::Which::everyEighth);
                        EXPECT_TRUE (places.insert ({ place.column, place.part }).second);
                        before = place.column;
                    }
                }

                const FrameOrder all (plan, FrameOrder::Which::all);
                EXPECT_EQ (std::int64_t (places.size()), all.getNumFrames());

                for (std::int64_t i = 0; i < all.getNumFrames(); ++i)
                    EXPECT_EQ (places.count ({ all.getPlace (i).column, all.getPlace (i).part }), 1u);
            }
}

TEST (FrameOrder, OwnColumnsAreOutOfReachOfAllOtherFrames)
{
    StillPlan plan;
    plan.margin = 5;
    plan.numColumns = 90;
    plan.framesPerColumn = 3;

    for (const auto which : { FrameOrder::Which::all, FrameOrder::Which::everyEighth, FrameOrder::Which::others })
    {
        const FrameOrder order (plan, which);

        for (std::int64_t first = 0; first < order.getNumFrames(); first += 7)
            for (const auto length : { 1, 10, 100 })
            {
                const auto end = std::min (first + length, order.getNumFrames());
                const auto own = order.getOwnColumns (first, end);

                for (std::int64_t i = 0; i < order.getNumFrames(); ++i)
                    for (auto reach = -plan.margin; reach <= plan.margin; ++reach)
                        ASSERT_FALSE ((i < first || i >= end) && own.contains (order.getPlace (i).column + reach));
            }

        EXPECT_TRUE (order.getOwnColumns (0, order.getNumFrames()).contains (50));
    }
}

} // namespace
} // namespace mk::orlo::test
