// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_events/juce_events.h>

#include <deque>
#include <functional>
#include <mutex>

namespace mk::orlo
{

/** Writes files on its own thread, one after the other, so that neither the encoding nor a slow disk stops the window, and
    tells how each ended. The thread starts with the first file. [message thread] */
class FileJobs final : private juce::Thread, private juce::AsyncUpdater
{
public:
    /** Returns false as soon as the window closes, for what may then be given up. */
    using ShouldGoOn = std::function<bool()>;

    /** Writes a file, on the thread. What it throws is a failure. */
    using Job = std::function<juce::Result (const ShouldGoOn&)>;

    FileJobs();

    /** Waits until everything is written that does not ask whether it should go on. */
    ~FileJobs() override;

    /** Gets the name of each job and how it ended. */
    std::function<void (const juce::String& name, const juce::Result&)> onFinished;

    /** Queues a job and returns. */
    void add (const juce::String& name, Job job);

private:
    struct Waiting
    {
        juce::String name;
        Job job;
    };

    struct Finished
    {
        juce::String name;
        juce::Result result;
    };

    void run() override;
    void handleAsyncUpdate() override;
    void runAllWaiting();

    std::mutex mutex; // guards the queues; not held while a file is written
    std::deque<Waiting> waiting;
    std::deque<Finished> finished;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FileJobs)
};

} // namespace mk::orlo
