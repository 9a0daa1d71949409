// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <functional>

namespace mk::pluginCore
{

/** Replaces the file's content by the text, in UTF-8, and creates missing parent folders. The replacement is
    all or nothing: the text is written to a temporary file in the same folder, which is renamed only once every
    byte is written. JUCE's own function does not notice when the disk fills up midway, and would replace a
    complete file by a truncated one.

    Returns false and leaves the file unchanged if the text cannot be written or the path is a folder. Blocks on
    the disk; not for the audio thread. */
bool replaceFileContent (const juce::File& file, const juce::String& text);

/** The same for bytes of any kind. */
bool replaceFileContent (const juce::File& file, const void* data, size_t numBytes);

/** The same for content that is written piece by piece, which may also go back in what it has written, and which may
    fail for reasons of its own. If the file is a link, the file that it points to is replaced. Fails for a file that is
    write-protected, as replacing it would need no access to it.

    @param write  writes the content, and returns whether it could be made. Failed writes are noticed here.
    @return  in a failure the reason, in one line of the system's or of write's own. What write throws is thrown, with
             the file unchanged. */
[[nodiscard]] juce::Result replaceFileInPieces (const juce::File& file,
                                                const std::function<juce::Result (juce::OutputStream&)>& write);

} // namespace mk::pluginCore
