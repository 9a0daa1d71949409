// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/StillPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <string>

namespace mk::orlo::test
{
namespace
{

/** Calls a function so many times, each time in a slice. */
class CountedJob final : public StillJob
{
public:
    CountedJob (int numSlices, std::function<void()> actionOfSlice)
        : left (numSlices), action (std::move (actionOfSlice))
    {
    }

    [[nodiscard]] bool hasWork() const noexcept override { return left.load() > 0 && ! isFinished(); }

    Outcome run() noexcept override
    {
        const auto before = left.fetch_sub (1);

        if (before < 1)
            return Outcome::nothingToDo;

        action();

        if (before == 1)
            finished.store (true);

        return Outcome::done;
    }

    [[nodiscard]] bool isFinished() const noexcept override { return finished.load(); }

    void cancel() { finished.store (true); }

private:
    std::atomic<int> left;
    std::atomic<bool> finished { false };
    const std::function<void()> action;
};

TEST (StillPool, IsSharedWhileSomebodyHoldsItAndThenGone)
{
    auto pool = StillPool::obtain();
    EXPECT_EQ (StillPool::obtain(), pool);
    EXPECT_EQ (pool->getNumThreads(), int (std::max (1u, std::thread::hardware_concurrency())));

    const std::weak_ptr<StillPool> weak = pool;
    pool = nullptr;
    EXPECT_TRUE (weak.expired());
    EXPECT_NE (StillPool::obtain(), nullptr);
}

TEST (StillPool, DoesTheMostUrgentFirstAndOfTwoTheEarlier)
{
    std::promise<void> open, end;
    auto opened = open.get_future();
    std::string order;

    // The jobs use the variables above, so they end first.
    StillPool pool (1);
    pool.add (std::make_shared<CountedJob> (1, [&] { opened.wait(); }), StillPriority::onScreen);

    const auto add = [&] (char name, StillPriority priority)
    { pool.add (std::make_shared<CountedJob> (2, [&order, name] { order += name; }), priority); };
    add ('d', StillPriority::background);
    add ('c', StillPriority::beside);
    add ('a', StillPriority::onScreen);
    add ('b', StillPriority::onScreen);
    pool.add (std::make_shared<CountedJob> (1, [&] { end.set_value(); }), StillPriority::background);

    open.set_value();
    end.get_future().wait();
    EXPECT_EQ (order, "aabbccdd");
}

TEST (StillPool, AllThreadsWorkOnOneJob)
{
    std::promise<void> end;
    std::atomic<int> numHere { 0 };
    StillPool pool (3);

    // Each waits for all others.
    pool.add (std::make_shared<CountedJob> (3,
                                            [&]
                                            {
                                                if (numHere.fetch_add (1) == 2)
                                                    end.set_value();

                                                while (numHere.load() < 3)
                                                    std::this_thread::yield();
                                            }),
              StillPriority::onScreen);
    end.get_future().wait();
    EXPECT_EQ (numHere.load(), 3);
}

TEST (StillPool, DropsJobsThatAreFinishedFromOutside)
{
    std::promise<void> open, end;
    auto opened = open.get_future();
    StillPool pool (1);
    pool.add (std::make_shared<CountedJob> (1, [&] { opened.wait(); }), StillPriority::onScreen);

    auto job = std::make_shared<CountedJob> (1000, [] { ADD_FAILURE() << "was cancelled"; });
    const std::weak_ptr<CountedJob> weak = job;
    pool.add (job, StillPriority::onScreen);
    job->cancel();
    pool.wake();
    job = nullptr;

    pool.add (std::make_shared<CountedJob> (1, [&] { end.set_value(); }), StillPriority::background);
    open.set_value();
    end.get_future().wait();
    EXPECT_TRUE (weak.expired());
}

TEST (StillPool, EndsWithJobsThatAreNotDone)
{
    std::atomic<int> numSlices { 0 };

    {
        StillPool pool (2);
        pool.add (std::make_shared<CountedJob> (1 << 30, [&] { numSlices.fetch_add (1); }), StillPriority::onScreen);

        while (numSlices.load() < 10)
            std::this_thread::yield();
    }

    EXPECT_GE (numSlices.load(), 10);
}

} // namespace
} // namespace mk::orlo::test
