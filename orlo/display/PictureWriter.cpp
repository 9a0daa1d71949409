// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PictureWriter.h"

#include "PictureFile.h"

namespace mk::orlo
{

PictureWriter::PictureWriter()
    : PictureWriter ([] (const juce::Image& picture, const juce::File& file) { pictureFile::write (picture, file); })
{
}

PictureWriter::PictureWriter (WriteFunction functionToUse)
    : juce::Thread ("picture writer"), writeFunction (std::move (functionToUse))
{
}

PictureWriter::~PictureWriter() { stopThread (-1); }

void PictureWriter::write (const juce::Image& picture, const juce::File& file)
{
    {
        const std::scoped_lock lock (mutex);
        waiting.push_back ({ juce::SoftwareImageType().convert (picture), file });
    }

    // If the system cannot start a thread, a window that stalls for a moment is better than a lost picture.
    if (! isThreadRunning() && ! startThread())
        writeAllWaiting();

    notify();
}

void PictureWriter::run()
{
    // No picture is queued after the request to stop, so checking the queue once more after it finds the rest.
    for (auto isLast = false; ! isLast;)
    {
        isLast = threadShouldExit();
        writeAllWaiting();

        if (! isLast)
            wait (-1.0);
    }
}

void PictureWriter::writeAllWaiting()
{
    while (const auto job = takeNext())
        writeFunction (job->picture, job->file);
}

std::optional<PictureWriter::Job> PictureWriter::takeNext()
{
    const std::scoped_lock lock (mutex);

    if (waiting.empty())
        return {};

    auto job = std::move (waiting.front());
    waiting.pop_front();
    return job;
}

} // namespace mk::orlo
