// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Puts the text, in UTF-8, in the place of the file's content, and makes the folders that lead there.
    All or nothing: the text goes to a file beside it, which takes the name only when every byte is on the
    disk. JUCE's own way does not notice when a disk fills up in the middle, and would put half a text in
    the place of a good one.

    False, with the file as it was, if the text cannot be written or a folder has that name. Blocks on the
    disk; not for the audio thread. */
bool replaceFileContent (const juce::File& file, const juce::String& text);

/** The same for bytes of any kind. */
bool replaceFileContent (const juce::File& file, const void* data, size_t numBytes);

} // namespace mk::pluginCore
