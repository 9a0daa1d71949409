// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/WindowBounds.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{
using Size = juce::Point<int>;

TEST (WindowBounds, AreParsedAsTheyAreWritten)
{
    EXPECT_EQ (formatWindowBounds (1050, 578), "0 0 1050 578");
    EXPECT_EQ (parseWindowSize (formatWindowBounds (1050, 578)), (Size { 1050, 578 }));
}

TEST (WindowBounds, CanBeSeparatedInSeveralWays)
{
    EXPECT_EQ (parseWindowSize ("1,2;3\t4"), (Size { 3, 4 }));
    EXPECT_EQ (parseWindowSize ("1\r2\n3 4 5"), (Size { 3, 4 }));
    EXPECT_EQ (parseWindowSize (" \t 1 2 3 4"), (Size { 3, 4 })) << "leading white space is ignored";
}

TEST (WindowBounds, AreZeroWhereTheyAreMissing)
{
    EXPECT_EQ (parseWindowSize (""), (Size { 0, 0 }));
    EXPECT_EQ (parseWindowSize ("0 0 640"), (Size { 640, 0 }));
    EXPECT_EQ (parseWindowSize ("0 0 wide high"), (Size { 0, 0 }));
    EXPECT_EQ (parseWindowSize ("0  0 640 480"), (Size { 0, 640 })) << "the empty text between two blanks is a token";
}

} // namespace
} // namespace mk::orlo::test
