// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace mk::orlo
{

/** What is made first, if several pictures are asked for at the same time. */
enum class StillPriority
{
    onScreen,  /**< The picture that the user looks at. */
    beside,    /**< What is on the screen beside it, such as the overview of all sound. */
    background /**< What nobody waits for with their eyes, such as a file. */
};

/** A piece of work that several threads do together. */
class StillJob
{
public:
    virtual ~StillJob() = default;

    enum class Outcome
    {
        nothingToDo, /**< Others are doing what is left, or all is done. */
        done,        /**< A slice is done. */
        opened       /**< The same, and there is work again for others who had nothing to do. */
    };

    /** Any thread. Whether a call of run() would find work at this moment. */
    [[nodiscard]] virtual bool hasWork() const noexcept = 0;

    /** Any thread. Does a slice of some milliseconds. Throws nothing: failing is a way of being finished. */
    virtual Outcome run() noexcept = 0;

    /** Any thread. Whether no thread needs to call run() again: all is done, cancelled or failed. */
    [[nodiscard]] virtual bool isFinished() const noexcept = 0;
};

/** Threads that make still pictures, one for each core, for all instances in the process. They take the slices of the
    job that is most urgent, and of two that are as urgent, of the one that came first. */
class StillPool
{
public:
    /** Any thread. The process's pool, which exists as long as anybody holds it. If threads cannot be had, it has fewer
        of them; without any, throws std::system_error. */
    [[nodiscard]] static std::shared_ptr<StillPool> obtain();

    /** A pool of its own, with that many threads. */
    explicit StillPool (int numThreads);

    /** Ends the threads after their slices; jobs that are not finished stay as they are. Not from a thread of the pool. */
    ~StillPool();

    StillPool (const StillPool&) = delete;
    StillPool& operator= (const StillPool&) = delete;

    [[nodiscard]] int getNumThreads() const noexcept { return int (threads.size()); }

    /** Any thread. Starts a job, which is dropped when it is finished. Allocates. */
    void add (std::shared_ptr<StillJob> job, StillPriority priority);

    /** Any thread. To be called when a job that waits has become finished from outside, so that it is dropped. */
    void wake();

private:
    struct Entry
    {
        std::shared_ptr<StillJob> job;
        StillPriority priority;
    };

    void run();
    [[nodiscard]] std::shared_ptr<StillJob> choose();

    std::mutex mutex; // guards the members below
    std::condition_variable changed;
    std::vector<Entry> entries; // the most urgent first
    bool shouldStop = false;

    std::vector<std::thread> threads; // set by the constructor only
};

} // namespace mk::orlo
