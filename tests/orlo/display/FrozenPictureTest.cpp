// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/FrozenPicture.h"

#include "orlo/stills/RenderPlan.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

[[nodiscard]] FrozenState makeFrozenState()
{
    FrozenState state;
    state.soundEnd = 1000000;
    state.pictureWidth = 400;
    state.writeColumn = 100;
    state.isScrolling = true;
    return state;
}

TEST (FrozenPicture, EndsWhereTheNewestFrameDoes)
{
    const auto state = makeFrozenState();
    const auto picture = findFrozenPicture (state);
    const auto column = double (getSamplesPerColumn (state.hop));
    const auto hop = planHop (state.hop).samplesPerFrame;

    EXPECT_GT (column, 0.0);
    EXPECT_EQ (picture.length, 400.0 * column);
    EXPECT_EQ (picture.start + picture.length, 1000000.0 - double (getLiveDelay (state.hop)) + double (hop) / 2.0);
    EXPECT_EQ (picture.getSampleAt (0.0), picture.start);
    EXPECT_EQ (picture.getSampleAt (1.0), picture.start + picture.length);
}

TEST (FrozenPicture, LeavesOutWhatWaitsForACompleteColumn)
{
    auto state = makeFrozenState();
    const auto end = [&state]
    {
        const auto picture = findFrozenPicture (state);
        return picture.start + picture.length;
    };
    const auto before = end();
    state.samplesWaiting = 10;
    EXPECT_EQ (end(), before - 10.0);

    // While the picture still moves, more may wait, but will not for long.
    state.samplesWaiting = 100000;
    EXPECT_GT (end(), before - double (getSamplesPerColumn (state.hop)));
}

TEST (FrozenPicture, OfStaticIsCutAtTheSeam)
{
    auto state = makeFrozenState();
    state.isScrolling = false;
    const auto picture = findFrozenPicture (state);
    const auto column = picture.length / 400.0;

    // The newest column is left of the hundredth, the oldest is the hundredth.
    EXPECT_DOUBLE_EQ (picture.getSampleAt (99.0 / 400.0), picture.start + picture.length - column);
    EXPECT_DOUBLE_EQ (picture.getSampleAt (0.25), picture.start);
    EXPECT_DOUBLE_EQ (picture.getSampleAt (0.0), picture.start + 300.0 * column);

    state.writeColumn = 500; // in the ring's other half
    EXPECT_EQ (findFrozenPicture (state).seam, 0.25);
    state.writeColumn = 400;
    EXPECT_EQ (findFrozenPicture (state).getSampleAt (0.0), picture.start);
}

TEST (FrozenPicture, IsNoneWithoutColumns)
{
    auto state = makeFrozenState();
    state.pictureWidth = 0;
    EXPECT_EQ (findFrozenPicture (state).length, 0.0);
    state = makeFrozenState();
    state.hop.sampleRate = 1.0;
    EXPECT_EQ (findFrozenPicture (state).length, 0.0);
}

} // namespace
} // namespace mk::orlo::test
