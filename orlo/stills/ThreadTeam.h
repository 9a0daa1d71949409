// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace mk::orlo
{

/** Threads that run the same function at the same time, and whose exceptions are not lost. */
class ThreadTeam
{
public:
    /** What each thread runs. The index, from 0, tells the threads apart. */
    using Work = std::function<void (int index)>;

    /** Starts the threads. If the system refuses some of them, the others do the work; throws std::system_error if it
        refuses all. */
    ThreadTeam (int numThreads, Work work);

    /** Waits until all threads have returned. */
    ~ThreadTeam();

    ThreadTeam (const ThreadTeam&) = delete;
    ThreadTeam& operator= (const ThreadTeam&) = delete;

    /** Waits until all threads have returned, but not longer than that. Returns whether they have. */
    [[nodiscard]] bool waitFor (std::chrono::milliseconds longest);

    /** Waits until all threads have returned and rethrows the first exception, if there was one. */
    void finish();

private:
    void start();
    void run (int index);
    void join();

    const Work work;
    std::vector<std::thread> threads;

    std::mutex mutex; // guards the members below
    std::condition_variable ended;
    int numRunning = 0;
    std::exception_ptr error;
};

/** Calls the body for every index from 0 up to, not including, numItems, on several threads and in no particular order.
    Rethrows what the body throws; then not all indices have been used. */
void forEachIndex (int numItems, int numThreads, const std::function<void (int index)>& body);

} // namespace mk::orlo
