// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <deque>
#include <functional>
#include <mutex>
#include <optional>

namespace mk::orlo
{

/** Writes pictures to files on its own thread, one after the other in the order in which they are passed, so that
    neither the encoding nor a slow disk blocks the window. The thread starts with the first picture. Failures are
    not reported. [message thread] */
class PictureWriter final : private juce::Thread
{
public:
    /** Puts a picture into a file; runs on the writer's thread. */
    using WriteFunction = std::function<void (const juce::Image&, const juce::File&)>;

    /** Writes PNG files. */
    PictureWriter();

    explicit PictureWriter (WriteFunction functionToUse);

    /** Waits until everything is written: closing the window does not lose a picture that its user has saved. */
    ~PictureWriter() override;

    /** Queues a picture and returns. If its pixels are on the graphics card, they are copied to memory first. */
    void write (const juce::Image& picture, const juce::File& file);

private:
    struct Job
    {
        juce::Image picture;
        juce::File file;
    };

    void run() override;
    void writeAllWaiting();
    [[nodiscard]] std::optional<Job> takeNext();

    const WriteFunction writeFunction;
    std::mutex mutex; // guards the queue; not held while a picture is written
    std::deque<Job> waiting;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PictureWriter)
};

} // namespace mk::orlo
