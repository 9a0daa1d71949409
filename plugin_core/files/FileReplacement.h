// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

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

} // namespace mk::pluginCore
