// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FileReplacement.h"

#include "CheckedFileStream.h"

#include <system_error>

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] bool writeWhole (const juce::File& file, const void* data, size_t numBytes)
{
    // A larger buffer would hide a failed write: the stream reports success for bytes that it has only buffered.
    constexpr size_t bufferSize = 16;
    juce::FileOutputStream stream (file, bufferSize);

    if (! stream.openedOk() || ! stream.write (data, numBytes))
        return false;

    stream.flush();
    return stream.getStatus().wasOk() && file.getSize() == juce::int64 (numBytes);
}

[[nodiscard]] juce::Result fail (std::errc reason)
{
    return juce::Result::fail (std::make_error_code (reason).message());
}
} // namespace

bool replaceFileContent (const juce::File& file, const juce::String& text)
{
    return replaceFileContent (file, text.toRawUTF8(), text.getNumBytesAsUTF8());
}

bool replaceFileContent (const juce::File& file, const void* data, size_t numBytes)
{
    if (file == juce::File() || file.isDirectory() || file.getParentDirectory().createDirectory().failed())
        return false;

    const juce::TemporaryFile temporary (file);
    return writeWhole (temporary.getFile(), data, numBytes) && temporary.overwriteTargetFileWithTemporary();
}

juce::Result replaceFileInPieces (const juce::File& file,
                                  const std::function<juce::Result (juce::OutputStream&)>& write)
{
    const auto target = file.isSymbolicLink() ? file.getLinkedTarget() : file;
    const auto folder = target.getParentDirectory();

    if (target == juce::File() || target.isDirectory())
        return fail (std::errc::is_a_directory);

    if (target.exists() && ! target.hasWriteAccess())
        return fail (std::errc::permission_denied);

    if (auto created = folder.createDirectory(); created.failed())
        return created;

    const juce::TemporaryFile temporary (target);
    CheckedFileStream stream (temporary.getFile());
    auto made = stream.getResult().wasOk() ? write (stream) : stream.getResult();
    auto closed = stream.close();

    // A disk that is full is the reason of what failed after it.
    if (closed.failed())
        return closed;

    if (made.failed())
        return made;

    return temporary.overwriteTargetFileWithTemporary() ? juce::Result::ok() : fail (std::errc::permission_denied);
}

} // namespace mk::pluginCore
