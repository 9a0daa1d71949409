// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cstdio>
#include <memory>

namespace mk::pluginCore
{

/** A file output stream that remembers the first failure.

    Image writers ignore the result of their writes; with this stream one check at the end is enough. Unlike
    JUCE's own stream it notices writes that were cut short by a full disk, and does not wait for the disk
    when it is closed. */
class CheckedFileStream final : public juce::OutputStream
{
public:
    /** Creates the file, or empties it; see getResult(). */
    explicit CheckedFileStream (const juce::File& file);

    /** Writes out what is left in the buffer and closes the file. Returns the first failure, if there was one. */
    [[nodiscard]] juce::Result close();

    /** The first failure so far, if there was one. */
    [[nodiscard]] juce::Result getResult() const { return result; }

    void flush() override;
    bool setPosition (juce::int64 newPosition) override;
    juce::int64 getPosition() override { return position; }
    bool write (const void* data, size_t size) override;

private:
    bool check (bool succeeded);

    struct Closer
    {
        void operator() (std::FILE* toClose) const noexcept { std::fclose (toClose); }
    };

    std::unique_ptr<std::FILE, Closer> handle;
    juce::int64 position = 0;
    juce::Result result = juce::Result::ok();
};

} // namespace mk::pluginCore
