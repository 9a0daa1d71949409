// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::orlo::render
{

/** Passes a stream through and remembers whether its reader wanted more than there was.

    The audio readers return silence where a file holds less than its header promises. Only their reads from
    the stream tell this silence from that of the audio. One thread at a time. */
class WatchedInputStream final : public juce::InputStream
{
public:
    explicit WatchedInputStream (std::unique_ptr<juce::InputStream> streamToWatch) : source (std::move (streamToWatch))
    {
    }

    juce::int64 getTotalLength() override { return source->getTotalLength(); }
    juce::int64 getPosition() override { return source->getPosition(); }
    bool setPosition (juce::int64 position) override { return source->setPosition (position); }

    int read (void* destination, int count) override
    {
        const auto got = source->read (destination, count);
        readShort = readShort || got < count;
        return got;
    }

    bool isExhausted() override
    {
        const auto exhausted = source->isExhausted();
        foundExhausted = foundExhausted || exhausted;
        return exhausted;
    }

    /** Whether a read got less than it asked for. */
    [[nodiscard]] bool wasReadShort() const noexcept { return readShort; }

    /** Whether isExhausted() has returned true. */
    [[nodiscard]] bool wasFoundExhausted() const noexcept { return foundExhausted; }

    /** Resets both flags. */
    void forget() noexcept { readShort = foundExhausted = false; }

private:
    const std::unique_ptr<juce::InputStream> source;
    bool readShort = false, foundExhausted = false;
};

} // namespace mk::orlo::render
