// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillPool.h"

#include <juce_core/juce_core.h>

#include <algorithm>
#include <system_error>

namespace mk::orlo
{
namespace
{
/** The process's one pool, which exists while anybody holds it. */
struct SharedPool
{
    std::mutex mutex;
    std::weak_ptr<StillPool> pool; // guarded by the mutex
};

[[nodiscard]] SharedPool& getSharedPool()
{
    static SharedPool shared;
    return shared;
}
} // namespace

std::shared_ptr<StillPool> StillPool::obtain()
{
    auto& shared = getSharedPool();
    const std::lock_guard lock (shared.mutex);
    auto pool = shared.pool.lock();

    if (pool == nullptr)
    {
        pool = std::make_shared<StillPool> (int (std::max (1u, std::thread::hardware_concurrency())));
        shared.pool = pool;
    }

    return pool;
}

StillPool::StillPool (int numThreads)
{
    threads.reserve (size_t (numThreads));

    try
    {
        while (int (threads.size()) < numThreads)
            threads.emplace_back ([this] { run(); });
    }
    catch (const std::system_error&)
    {
        if (threads.empty())
            throw;
    }
}

StillPool::~StillPool()
{
    {
        const std::lock_guard lock (mutex);
        shouldStop = true;
    }

    changed.notify_all();

    for (auto& thread : threads)
        thread.join();
}

void StillPool::add (std::shared_ptr<StillJob> job, StillPriority priority)
{
    {
        const std::lock_guard lock (mutex);
        const auto isLess = [] (StillPriority wanted, const Entry& entry) { return wanted < entry.priority; };
        const auto place = std::upper_bound (entries.begin(), entries.end(), priority, isLess);
        entries.insert (place, { std::move (job), priority });
    }

    changed.notify_all();
}

void StillPool::wake() { changed.notify_all(); }

std::shared_ptr<StillJob> StillPool::choose()
{
    for (const auto& entry : entries)
        if (entry.job->hasWork())
            return entry.job;

    return nullptr;
}

void StillPool::run()
{
    juce::Thread::setCurrentThreadName ("stills");
    std::vector<std::shared_ptr<StillJob>> dropped; // destroyed outside of the lock
    std::unique_lock lock (mutex);

    while (! shouldStop)
    {
        for (auto entry = entries.begin(); entry != entries.end();)
            if (entry->job->isFinished())
            {
                dropped.push_back (std::move (entry->job));
                entry = entries.erase (entry);
            }
            else
            {
                ++entry;
            }

        auto job = choose();

        if (job == nullptr && dropped.empty())
        {
            changed.wait (lock);
            continue;
        }

        lock.unlock();
        dropped.clear();

        if (job != nullptr && job->run() == StillJob::Outcome::opened)
            changed.notify_all();

        job = nullptr;
        lock.lock();
    }
}

} // namespace mk::orlo
