// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::pluginCore
{

/** Parses XML from a user, a host or a failing disk. juce::XmlDocument is unsafe for such input: malformed
    text makes it read past the end or loop forever, entities expand recursively, each nesting level uses
    stack, and text between elements crashes its writer. This parser accepts only what our documents use,
    in time linear in the length of the text, and reads it as juce::XmlDocument does.

    It accepts elements with attributes, nested at most 100 deep, at most 2000 elements and 4000 attributes in
    all; names of ASCII letters, digits, "_", "-" and ":"; references to characters by number or by the five
    predefined names; comments and processing instructions, which are skipped; whitespace between elements. It
    rejects everything else: declarations, text between elements, invalid UTF-8, more than 4 MB. The text ends
    at the first null byte, if any; a byte order mark is skipped.

    Returns null for rejected text. Any thread. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const void* text, size_t numBytes);

/** The same for a string. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::String& text);

/** The same for a file's content; also null if the file cannot be read, or is a pipe or a device. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::File& file);

} // namespace mk::pluginCore
