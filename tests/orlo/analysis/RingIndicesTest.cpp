// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/RingIndices.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (RingIndices, AdvanceOnlyFromWhereTheyAre)
{
    RingIndices indices (8);
    indices.advanceWrite (5);
    const auto seen = indices.getReadPosition();
    EXPECT_EQ (indices.getNumReadyFrom (seen), 5);

    indices.discardAll();
    EXPECT_FALSE (indices.advanceRead (seen, 5));
    EXPECT_EQ (indices.getReadPosition(), indices.getWritePosition());

    // Once round the ring, the slot is the same one again, but the position is not.
    indices.advanceWrite (3);
    EXPECT_EQ (indices.getSlot (indices.getWritePosition()), indices.getSlot (seen));
    EXPECT_FALSE (indices.advanceRead (seen, 3));
    EXPECT_EQ (indices.getNumReady(), 3);
}

} // namespace
} // namespace mk::orlo::test
