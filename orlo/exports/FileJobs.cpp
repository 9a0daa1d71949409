// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FileJobs.h"

#include <exception>
#include <utility>

namespace mk::orlo
{
namespace
{
[[nodiscard]] juce::Result runJob (const FileJobs::Job& job, const FileJobs::ShouldGoOn& shouldGoOn)
{
    try
    {
        return job (shouldGoOn);
    }
    catch (const std::exception& exception)
    {
        return juce::Result::fail (exception.what());
    }
}
} // namespace

FileJobs::FileJobs() : juce::Thread ("file writer") {}

FileJobs::~FileJobs()
{
    stopThread (-1);
    cancelPendingUpdate();
}

void FileJobs::add (const juce::String& name, Job job)
{
    {
        const std::scoped_lock lock (mutex);
        waiting.push_back ({ name, std::move (job) });
    }

    // If the system cannot start a thread, a window that stalls for a moment is better than a lost file.
    if (! isThreadRunning() && ! startThread())
        runAllWaiting();

    notify();
}

void FileJobs::run()
{
    // No job is queued after the request to stop, so checking the queue once more after it finds the rest.
    for (auto isLast = false; ! isLast;)
    {
        isLast = threadShouldExit();
        runAllWaiting();

        if (! isLast)
            wait (-1.0);
    }
}

void FileJobs::runAllWaiting()
{
    for (;;)
    {
        Waiting next;

        {
            const std::scoped_lock lock (mutex);

            if (waiting.empty())
                return;

            next = std::move (waiting.front());
            waiting.pop_front();
        }

        const auto result = runJob (next.job, [this] { return ! threadShouldExit(); });

        {
            const std::scoped_lock lock (mutex);
            finished.push_back ({ next.name, result });
        }

        triggerAsyncUpdate();
    }
}

void FileJobs::handleAsyncUpdate()
{
    std::deque<Finished> ended;

    {
        const std::scoped_lock lock (mutex);
        ended = std::exchange (finished, {});
    }

    for (const auto& [name, result] : ended)
        if (onFinished != nullptr)
            onFinished (name, result);
}

} // namespace mk::orlo
