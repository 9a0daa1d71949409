// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::pluginCore
{

/** Whether juce::XmlDocument may be given this text. It trusts its input: it recurses once per level, it
    expands the entities that a document declares, into themselves too, and a truncated character reference
    or broken UTF-8 leads it past the end of the text. Bytes that a user, a host or a failing disk gives us
    would take the host down with us.

    Safe is UTF-8 of at most 4 MB that declares nothing, refers to characters only in full, and has no more
    than 500 "<", which bounds the depth whatever the tags are. The text ends at the first null byte, if any.
    Says nothing about whether the text is XML. Any thread. */
[[nodiscard]] bool isSafeXml (const void* text, size_t numBytes) noexcept;

/** The text as XML; null if it is not safe or not XML. Any thread. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const void* text, size_t numBytes);

/** The file's content as XML; null if it cannot be read, is not safe or not XML. A byte order mark of UTF-8
    is skipped. Any thread. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::File& file);

} // namespace mk::pluginCore
