// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CheckedFileStream.h"

#include <cerrno>
#include <system_error>

namespace mk::pluginCore
{

CheckedFileStream::CheckedFileStream (const juce::File& file)
    : handle (std::fopen (file.getFullPathName().toRawUTF8(), "wb"))
{
    check (handle != nullptr);
}

bool CheckedFileStream::check (bool succeeded)
{
    if (! succeeded && result.wasOk())
        result = juce::Result::fail (std::generic_category().message (errno));

    return succeeded;
}

bool CheckedFileStream::write (const void* data, size_t size)
{
    if (result.failed())
        return false;

    position += juce::int64 (size);
    return check (std::fwrite (data, 1, size, handle.get()) == size);
}

void CheckedFileStream::flush()
{
    if (result.wasOk())
        check (std::fflush (handle.get()) == 0);
}

bool CheckedFileStream::setPosition (juce::int64 newPosition)
{
    if (newPosition == position)
        return true;

    if (result.failed() || ! check (std::fseek (handle.get(), long (newPosition), SEEK_SET) == 0))
        return false;

    position = newPosition;
    return true;
}

juce::Result CheckedFileStream::close()
{
    if (handle != nullptr)
        check (std::fclose (handle.release()) == 0);

    return result;
}

} // namespace mk::pluginCore
