// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ThreadTeam.h"

#include <algorithm>
#include <atomic>

namespace mk::orlo
{

ThreadTeam::ThreadTeam (int numThreads, Work workOfEach) : work (std::move (workOfEach))
{
    threads.reserve (size_t (numThreads));

    try
    {
        while (int (threads.size()) < numThreads)
            start();
    }
    catch (...)
    {
        // Without this a thread that runs would be destroyed.
        if (threads.empty())
            throw;
    }
}

ThreadTeam::~ThreadTeam() { join(); }

void ThreadTeam::start()
{
    const auto index = int (threads.size());

    // The thread's end needs the mutex, too, so it is counted first.
    const std::lock_guard lock (mutex);
    threads.emplace_back ([this, index] { run (index); });
    ++numRunning;
}

void ThreadTeam::run (int index)
{
    std::exception_ptr failure;

    try
    {
        work (index);
    }
    catch (...)
    {
        failure = std::current_exception();
    }

    const std::lock_guard lock (mutex);

    if (error == nullptr)
        error = std::move (failure);

    if (--numRunning == 0)
        ended.notify_all();
}

bool ThreadTeam::waitFor (std::chrono::milliseconds longest)
{
    std::unique_lock lock (mutex);
    return ended.wait_for (lock, longest, [this] { return numRunning == 0; });
}

void ThreadTeam::finish()
{
    join();

    if (error != nullptr)
        std::rethrow_exception (error);
}

void ThreadTeam::join()
{
    for (auto& thread : threads)
        if (thread.joinable())
            thread.join();
}

//==============================================================================
void forEachIndex (int numItems, int numThreads, const std::function<void (int index)>& body)
{
    // Taken by each thread in turn.
    std::atomic<int> next { 0 };

    const auto work = [&] (int)
    {
        for (int i; (i = next.fetch_add (1, std::memory_order_relaxed)) < numItems;)
            body (i);
    };

    const auto numUseful = std::min (numItems, numThreads);

    if (numUseful < 2)
        return work (0);

    ThreadTeam team (numUseful, work);
    team.finish();
}

} // namespace mk::orlo
