// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FileReplacement.h"

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

} // namespace mk::pluginCore
