// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MemorySource.h"
#include "orlo/stills/MakeStill.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace mk::orlo::test
{

using StillPointer = std::shared_ptr<const StillPicture>;

[[nodiscard]] inline StillPointer drawStill (const StillRequest& request, int numThreads = 2)
{
    return makeStill (request, numThreads, [] (double) { return true; });
}

/** The sum of what stands out in a column. */
[[nodiscard]] inline double getLoudness (const StillPicture& picture, int x)
{
    double sum = 0.0;

    for (int y = 0; y < picture.getHeight(); ++y)
        sum += double (StillPicture::levelFor (picture.getDecibels (x, y), -100.0f, 0.0f));

    return sum;
}

[[nodiscard]] inline int findLoudestColumn (const StillPicture& picture)
{
    int loudest = 0;

    for (int x = 1; x < picture.getWidth(); ++x)
        if (getLoudness (picture, x) > getLoudness (picture, loudest))
            loudest = x;

    return loudest;
}

[[nodiscard]] inline int findLoudestRow (const StillPicture& picture, int x)
{
    int loudest = 0;

    for (int y = 1; y < picture.getHeight(); ++y)
        if (picture.getDecibels (x, y) > picture.getDecibels (x, loudest))
            loudest = y;

    return loudest;
}

/** Expects column x of the left picture to be column x + distance of the right one, for all columns that both have. */
inline void expectSame (const StillPicture& left, const StillPicture& right, int distance = 0)
{
    ASSERT_EQ (left.getHeight(), right.getHeight());

    for (int x = 0; x < std::min (left.getWidth(), right.getWidth() - distance); ++x)
        for (int y = 0; y < left.getHeight(); ++y)
            ASSERT_EQ (left.getDecibels (x, y), right.getDecibels (x + distance, y)) << x << " " << y;
}

} // namespace mk::orlo::test
