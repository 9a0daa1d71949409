// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/ThreadTeam.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <stdexcept>

namespace mk::orlo::test
{
using namespace std::chrono_literals;

TEST (ThreadTeam, RunsAllThreadsAtTheSameTimeEachWithItsIndex)
{
    std::atomic<int> indices { 0 };
    std::latch everyoneIsHere (4);

    ThreadTeam team (4,
                     [&] (int index)
                     {
                         indices |= 1 << index;
                         everyoneIsHere.arrive_and_wait(); // would wait for ever if one thread came after another
                     });
    team.finish();
    EXPECT_EQ (indices, 15);
}

TEST (ThreadTeam, RethrowsAnExceptionAfterTheOthersHaveReturned)
{
    std::atomic<int> numReturned { 0 };
    std::latch hasThrown (1);

    ThreadTeam team (3,
                     [&] (int index)
                     {
                         if (index == 1)
                         {
                             hasThrown.count_down();
                             throw std::runtime_error ("one");
                         }

                         hasThrown.wait();
                         ++numReturned;
                     });

    EXPECT_THROW (team.finish(), std::runtime_error);
    EXPECT_EQ (numReturned, 2);
}

TEST (ThreadTeam, WaitsUntilAllHaveReturned)
{
    std::latch mayReturn (1);
    ThreadTeam team (2, [&] (int) { mayReturn.wait(); });
    EXPECT_FALSE (team.waitFor (0ms));
    mayReturn.count_down();

    while (! team.waitFor (1000ms))
    {
    }

    EXPECT_TRUE (team.waitFor (0ms));
}

TEST (ThreadTeam, ItsDestructorWaitsForTheThreads)
{
    std::atomic<int> numReturned { 0 };

    {
        const ThreadTeam team (3, [&] (int) { ++numReturned; });
    }

    EXPECT_EQ (numReturned, 3);
}

TEST (ForEachIndex, UsesEachIndexOnce)
{
    for (const auto numThreads : { 1, 2, 5 })
        for (const auto numItems : { 0, 1, 4, 1000 })
        {
            std::vector<std::atomic<int>> uses (static_cast<size_t> (numItems));
            forEachIndex (numItems, numThreads, [&] (int index) { ++uses[size_t (index)]; });

            for (const auto& count : uses)
                ASSERT_EQ (count, 1) << numThreads << " " << numItems;
        }
}

TEST (ForEachIndex, RethrowsWhatTheBodyThrows)
{
    for (const auto numThreads : { 1, 3 })
        EXPECT_THROW (forEachIndex (100,
                                    numThreads,
                                    [] (int index)
                                    {
                                        if (index == 50)
                                            throw std::runtime_error ("fifty");
                                    }),
                      std::runtime_error);
}

} // namespace mk::orlo::test
