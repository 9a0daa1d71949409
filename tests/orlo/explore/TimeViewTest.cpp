// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/explore/TimeView.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::orlo::test
{
namespace
{

constexpr double viewRate = 1000.0;

/** Ten seconds of sound, of which the last second is the frozen picture. */
[[nodiscard]] TimeView makeTimeView() { return { 500.0, 10500.0, viewRate, 9500.0, 1000.0 }; }

TEST (TimeView, StartsAtHome)
{
    const auto view = makeTimeView();
    EXPECT_TRUE (view.isHome());
    EXPECT_EQ (view.getStart(), 9500.0);
    EXPECT_EQ (view.getEnd(), 10500.0);
    EXPECT_EQ (view.getSampleAt (0.25), 9750.0);
    EXPECT_EQ (view.getShareOf (9750.0), 0.25);
    EXPECT_EQ (view.getSecondsAt (9750.0), -0.75);
}

TEST (TimeView, ZoomsAboutAPoint)
{
    auto view = makeTimeView();
    view.zoom (0.5, view.getSampleAt (0.3), 0.3);
    EXPECT_FALSE (view.isHome());
    EXPECT_DOUBLE_EQ (view.getLength(), 500.0);
    EXPECT_DOUBLE_EQ (view.getSampleAt (0.3), 9800.0);

    view.zoom (2.0, view.getSampleAt (0.3), 0.3);
    EXPECT_TRUE (view.isHome());
}

TEST (TimeView, ZoomsFromFiveMillisecondsToTheWholeSound)
{
    auto view = makeTimeView();
    view.zoom (1.0e-9, 9700.0, 0.5);
    EXPECT_DOUBLE_EQ (view.getLength(), 5.0);
    EXPECT_DOUBLE_EQ (view.getSampleAt (0.5), 9700.0);

    view.zoom (1.0e9, 9700.0, 0.5);
    EXPECT_EQ (view.getStart(), 500.0);
    EXPECT_EQ (view.getLength(), 10000.0);
}

TEST (TimeView, ZoomsOutToAHomeThatIsLongerThanTheSound)
{
    TimeView view (0.0, 300.0, viewRate, -700.0, 1000.0);
    view.zoom (0.1, 200.0, 0.5);
    EXPECT_DOUBLE_EQ (view.getStart(), 150.0);
    view.zoom (1.0e9, 200.0, 0.5);
    EXPECT_EQ (view.getLength(), 1000.0);
    EXPECT_LE (view.getStart(), 0.0);
    EXPECT_GE (view.getEnd(), 300.0);
}

TEST (TimeView, MovesAsFarAsThereIsSound)
{
    auto view = makeTimeView();
    view.moveBy (-250.0);
    EXPECT_EQ (view.getStart(), 9250.0);
    view.moveBy (-1.0e9);
    EXPECT_EQ (view.getStart(), 500.0);
    view.moveBy (1.0e9);
    EXPECT_EQ (view.getEnd(), 10500.0);
    view.goToStart();
    EXPECT_EQ (view.getStart(), 500.0);
    view.goToEnd();
    EXPECT_EQ (view.getEnd(), 10500.0);
    EXPECT_EQ (view.getLength(), 1000.0);
    view.showAll();
    EXPECT_EQ (view.getLength(), 10000.0);
    view.goHome();
    EXPECT_TRUE (view.isHome());
}

TEST (TimeView, IgnoresWhatIsNoNumber)
{
    constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
    constexpr auto infinity = std::numeric_limits<double>::infinity();
    auto view = makeTimeView();

    for (const auto value : { nan, infinity, -infinity })
    {
        view.moveBy (value);
        view.setRange (value, 100.0);
        view.setRange (9500.0, value);
        view.zoom (0.5, value, 0.5);
    }

    for (const auto factor : { nan, 0.0, -1.0 })
        view.zoom (factor, 9600.0, 0.5);

    EXPECT_TRUE (view.isHome());
}

} // namespace
} // namespace mk::orlo::test
