// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::pluginCore
{

/** Reads XML that a user, a host or a failing disk gives us. juce::XmlDocument is not made for that: broken
    text leads it past the end or round for ever, entities are expanded into themselves, every level costs
    stack, and text between elements crashes its writer. This reader takes what our documents are made of and
    nothing else, in time that grows with the text; and what it takes, juce::XmlDocument reads alike.

    Taken are elements with attributes, nested at most 100 deep, at most 2000 of them with 4000 attributes in
    all; names of ASCII letters, digits, "_", "-" and ":"; references to characters by number or by the five
    common names; comments and processing instructions, which are skipped; space between elements. Refused is
    all else: declarations, text between elements, what is not UTF-8, more than 4 MB. The text ends at the
    first null byte, if any; a byte order mark is skipped.

    Null for a text that is refused. Any thread. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const void* text, size_t numBytes);

/** The same for a text that is a string already. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::String& text);

/** The same for a file's content; null too if it cannot be read, or is a pipe or a device and not a file. */
[[nodiscard]] std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::File& file);

} // namespace mk::pluginCore
