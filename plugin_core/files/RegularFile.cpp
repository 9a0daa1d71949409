// SPDX-License-Identifier: AGPL-3.0-or-later
#include "RegularFile.h"

#if ! JUCE_WINDOWS
    #include <cerrno>
    #include <fcntl.h>
    #include <sys/stat.h>
    #include <unistd.h>
#endif

namespace mk::pluginCore
{

#if JUCE_WINDOWS

// On Windows no folder can contain a pipe or a device.
std::optional<juce::MemoryBlock> readRegularFile (const juce::File& file, size_t maxBytes)
{
    juce::MemoryBlock content;

    if (! file.existsAsFile() || file.getSize() > juce::int64 (maxBytes) || ! file.loadFileAsData (content))
        return std::nullopt;

    return content;
}

#else

namespace
{
[[nodiscard]] int openForReading (const char* path)
{
    // A blocking open of a pipe would wait for a writer.
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY;
    const auto number = open (path, flags | O_NONBLOCK);

    // Another program holds a lease on the file; a blocking open makes it give the lease up. Pipes have no leases.
    return number < 0 && errno == EWOULDBLOCK ? open (path, flags) : number;
}

class Descriptor
{
public:
    explicit Descriptor (const juce::File& file) : number (openForReading (file.getFullPathName().toRawUTF8())) {}

    ~Descriptor()
    {
        if (number >= 0)
            close (number);
    }

    /** Checks the open descriptor, since the path may refer to another file by now. */
    [[nodiscard]] bool isRegularFile (size_t maxBytes) const
    {
        struct stat status
        {
        };
        return number >= 0 && fstat (number, &status) == 0 && S_ISREG (status.st_mode)
               && juce::uint64 (status.st_size) <= maxBytes;
    }

    /** Negative after an error, 0 at the end. */
    [[nodiscard]] ssize_t readSome (void* destination, size_t size) const
    {
        for (;;)
            if (const auto count = read (number, destination, size); count >= 0 || errno != EINTR)
                return count;
    }

private:
    const int number;

    JUCE_DECLARE_NON_COPYABLE (Descriptor)
};
} // namespace

std::optional<juce::MemoryBlock> readRegularFile (const juce::File& file, size_t maxBytes)
{
    const Descriptor descriptor (file);

    if (! descriptor.isRegularFile (maxBytes))
        return std::nullopt;

    constexpr size_t chunkSize = size_t { 16 } * 1024;
    char chunk[chunkSize];
    juce::MemoryBlock content;

    while (const auto count = descriptor.readSome (chunk, chunkSize))
    {
        // The file may have grown since its size was checked.
        if (count < 0 || content.getSize() + size_t (count) > maxBytes)
            return std::nullopt;

        content.append (chunk, size_t (count));
    }

    return content;
}

#endif

} // namespace mk::pluginCore
