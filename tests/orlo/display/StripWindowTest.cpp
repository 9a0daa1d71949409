// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/StripWindow.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

using StripPart = StripWindow::Part;

/** A strip of 100 pixels for ten seconds at 1 kHz: a pixel is 100 samples. */
[[nodiscard]] StripWindow makeStrip (double start, double length)
{
    return { TimeView (0.0, 10000.0, 1000.0, start, length), 100 };
}

TEST (StripWindow, LiesWhereTheRangeDoes)
{
    const auto strip = makeStrip (2000.0, 3000.0);
    EXPECT_DOUBLE_EQ (strip.getLeft(), 20.0);
    EXPECT_DOUBLE_EQ (strip.getRight(), 50.0);
    EXPECT_DOUBLE_EQ (strip.getSampleAt (20.0), 2000.0);
}

TEST (StripWindow, IsNeverTooNarrowToSee)
{
    for (const auto start : { 0.0, 5000.0, 9995.0 })
    {
        const auto strip = makeStrip (start, 5.0);
        EXPECT_GE (strip.getRight() - strip.getLeft(), 4.0 - 1.0e-9);
        EXPECT_GE (strip.getLeft(), 0.0);
        EXPECT_LE (strip.getRight(), 100.0);
        EXPECT_EQ (strip.findPart ((strip.getLeft() + strip.getRight()) * 0.5), StripPart::inside);
    }
}

TEST (StripWindow, HasEdgesToPull)
{
    const auto strip = makeStrip (2000.0, 3000.0);
    EXPECT_EQ (strip.findPart (5.0), StripPart::outside);
    EXPECT_EQ (strip.findPart (18.0), StripPart::leftEdge);
    EXPECT_EQ (strip.findPart (22.0), StripPart::leftEdge);
    EXPECT_EQ (strip.findPart (35.0), StripPart::inside);
    EXPECT_EQ (strip.findPart (48.0), StripPart::rightEdge);
    EXPECT_EQ (strip.findPart (52.0), StripPart::rightEdge);
    EXPECT_EQ (strip.findPart (80.0), StripPart::outside);
}

TEST (StripWindow, IsDraggedAndPulled)
{
    const auto strip = makeStrip (2000.0, 3000.0);
    const auto moved = strip.drag (StripPart::inside, 10.0);
    EXPECT_DOUBLE_EQ (moved.getStart(), 3000.0);
    EXPECT_DOUBLE_EQ (moved.getLength(), 3000.0);

    const auto left = strip.drag (StripPart::leftEdge, -10.0);
    EXPECT_DOUBLE_EQ (left.getStart(), 1000.0);
    EXPECT_DOUBLE_EQ (left.getEnd(), 5000.0);

    const auto right = strip.drag (StripPart::rightEdge, 10.0);
    EXPECT_DOUBLE_EQ (right.getStart(), 2000.0);
    EXPECT_DOUBLE_EQ (right.getEnd(), 6000.0);
    EXPECT_TRUE (strip.drag (StripPart::outside, 10.0).isHome());
}

TEST (StripWindow, PullingNeverMovesTheOtherEdge)
{
    const auto strip = makeStrip (2000.0, 3000.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::leftEdge, 90.0).getEnd(), 5000.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::leftEdge, 90.0).getLength(), 5.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::leftEdge, -90.0).getStart(), 0.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::leftEdge, -90.0).getEnd(), 5000.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::rightEdge, -90.0).getStart(), 2000.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::rightEdge, 90.0).getEnd(), 10000.0);
    EXPECT_DOUBLE_EQ (strip.drag (StripPart::rightEdge, 90.0).getStart(), 2000.0);
}

TEST (StripWindow, GoesToAPlace)
{
    const auto view = makeStrip (2000.0, 3000.0).centreAt (60.0);
    EXPECT_DOUBLE_EQ (view.getStart(), 4500.0);
    EXPECT_DOUBLE_EQ (view.getLength(), 3000.0);
}

} // namespace
} // namespace mk::orlo::test
