// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UntrustedXml.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace mk::pluginCore
{
namespace
{
constexpr size_t maxBytes = 4 * 1024 * 1024;
constexpr int maxTags = 500;

/** The text as far as the first null byte. */
[[nodiscard]] std::string_view upToNull (const void* text, size_t numBytes) noexcept
{
    const std::string_view all (static_cast<const char*> (text), numBytes);
    return all.substr (0, all.find ('\0'));
}

/** Whether the digits, all of them, are the number of a character. */
[[nodiscard]] bool isCharacterNumber (std::string_view digits, int base) noexcept
{
    juce::uint32 number = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stoppedAt, error] = std::from_chars (digits.data(), end, number, base);
    const auto isSurrogate = number >= 0xd800 && number <= 0xdfff;
    return error == std::errc() && stoppedAt == end && number > 0 && number <= 0x10ffff && ! isSurrogate;
}

/** Whether the text, which follows an ampersand, names a character. */
[[nodiscard]] bool startsWithCharacterName (std::string_view text) noexcept
{
    constexpr size_t longestName = 10;
    const auto length = text.substr (0, longestName).find (';');

    if (length == std::string_view::npos)
        return false;

    const auto name = text.substr (0, length);

    if (name.starts_with ("#x") || name.starts_with ("#X"))
        return isCharacterNumber (name.substr (2), 16);

    if (name.starts_with ('#'))
        return isCharacterNumber (name.substr (1), 10);

    static constexpr std::array<std::string_view, 5> known { "amp", "quot", "apos", "lt", "gt" };
    return std::find (known.begin(), known.end(), name) != known.end();
}

/** Whether the text, which follows a "<", opens no declaration. */
[[nodiscard]] bool declaresNothing (std::string_view text) noexcept
{
    return ! text.starts_with ('!') || text.starts_with ("!--") || text.starts_with ("![CDATA[");
}

/** The file's bytes, as long as they are few enough to be looked at. */
[[nodiscard]] bool readFile (const juce::File& file, juce::MemoryBlock& content)
{
    return file.existsAsFile() && file.getSize() <= juce::int64 (maxBytes) && file.loadFileAsData (content);
}
} // namespace

//==============================================================================
bool isSafeXml (const void* data, size_t numBytes) noexcept
{
    const auto text = upToNull (data, std::min (numBytes, maxBytes + 1));

    if (text.size() > maxBytes || ! juce::CharPointer_UTF8::isValidString (text.data(), int (text.size())))
        return false;

    int numTags = 0;

    for (size_t i = 0; i < text.size(); ++i)
    {
        const auto rest = text.substr (i + 1);

        if (text[i] == '<' && (++numTags > maxTags || ! declaresNothing (rest)))
            return false;

        if (text[i] == '&' && ! startsWithCharacterName (rest))
            return false;
    }

    return true;
}

std::unique_ptr<juce::XmlElement> parseUntrustedXml (const void* data, size_t numBytes)
{
    if (! isSafeXml (data, numBytes))
        return nullptr;

    const auto text = upToNull (data, numBytes);
    return juce::parseXML (juce::String::fromUTF8 (text.data(), int (text.size())));
}

std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::File& file)
{
    juce::MemoryBlock content;

    if (! readFile (file, content))
        return nullptr;

    constexpr size_t markSize = 3;
    const auto* const bytes = static_cast<const char*> (content.getData());
    const auto numSkipped =
        content.getSize() >= markSize && juce::CharPointer_UTF8::isByteOrderMark (bytes) ? markSize : 0;
    return parseUntrustedXml (bytes + numSkipped, content.getSize() - numSkipped);
}

} // namespace mk::pluginCore
