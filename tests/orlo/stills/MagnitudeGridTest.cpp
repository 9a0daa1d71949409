// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/MagnitudeGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <thread>
#include <vector>

namespace mk::orlo::test
{
namespace
{

TEST (MagnitudeGrid, KeepsTheLargestOfEachPixel)
{
    const auto memory = std::make_shared<StillMemory>();
    MagnitudeGrid grid (3, 4, *memory);
    EXPECT_TRUE (std::ranges::all_of (grid.getColumn (1), [] (float value) { return ! (value > 0.0f); }));

    grid.raiseOwn (1, 2, 0.5f);
    grid.raiseOwn (1, 2, 0.25f);
    grid.raiseShared (2, 0, 0.125f);
    grid.raiseShared (2, 0, 0.75f);

    for (const auto nothing : { -1.0f, std::numeric_limits<float>::quiet_NaN() })
    {
        grid.raiseOwn (0, 0, nothing);
        grid.raiseShared (0, 0, nothing);
    }

    EXPECT_EQ (grid.getColumn (1)[2], 0.5f);
    EXPECT_EQ (grid.getColumn (2)[0], 0.75f);
    EXPECT_EQ (grid.getColumn (0)[0], 0.0f);
}

TEST (MagnitudeGrid, IsClearedWhenItGetsTheMemoryOfAnother)
{
    const auto memory = std::make_shared<StillMemory>();
    const float* place = nullptr;

    {
        MagnitudeGrid grid (20, 40, *memory);
        grid.raiseOwn (7, 9, 1.0f);
        place = grid.getColumn (0).data();
    }

    const MagnitudeGrid again (20, 40, *memory);
    EXPECT_EQ (again.getColumn (0).data(), place);
    EXPECT_EQ (again.getColumn (7)[9], 0.0f);
}

TEST (StillMemory, IsFreedByWhoeverIsLast)
{
    auto memory = std::make_shared<StillMemory>();
    const auto block = memory->obtain (1000);
    EXPECT_NE (memory->obtain (1000), nullptr);
    memory = nullptr;
    block[999] = 1.0f;
}

TEST (MagnitudeGrid, KeepsTheLargestOfSeveralThreads)
{
    constexpr int numThreads = 4, numValues = 20000;
    const auto memory = std::make_shared<StillMemory>();
    MagnitudeGrid grid (2, 8, *memory);
    std::vector<std::thread> threads;

    for (int thread = 0; thread < numThreads; ++thread)
        threads.emplace_back (
            [&grid, thread]
            {
                // Each has the largest value of some pixels.
                for (int i = 0; i < numValues; ++i)
                    grid.raiseShared (i % 2, i % 8, float ((i * 7919 + thread * 104729) % numValues));
            });

    for (auto& thread : threads)
        thread.join();

    std::vector<float> expected (16);

    for (int thread = 0; thread < numThreads; ++thread)
        for (int i = 0; i < numValues; ++i)
        {
            auto& value = expected[size_t (i % 2 * 8 + i % 8)];
            value = std::max (value, float ((i * 7919 + thread * 104729) % numValues));
        }

    for (int column = 0; column < 2; ++column)
        for (int row = 0; row < 8; ++row)
            EXPECT_EQ (grid.getColumn (column)[size_t (row)], expected[size_t (column * 8 + row)]);
}

} // namespace
} // namespace mk::orlo::test
