// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UpdateReplies.h"

#include "plugin_core/text/LeadingInteger.h"
#include "plugin_core/text/Utf8.h"

#include <string>
#include <string_view>

namespace mk::pluginCore::updateReplies
{
namespace
{
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";
constexpr int longestCharacter = 4;

/** The bytes without an incomplete UTF-8 character at the end. */
[[nodiscard]] std::string_view withoutCutCharacter (std::string_view bytes)
{
    auto end = bytes.size();

    for (int i = 1; i < longestCharacter && end > 0; ++i)
    {
        const auto byte = juce::uint8 (bytes[--end]);

        if (byte >= 0xc0)
            return isUtf8 (bytes.substr (end)) ? bytes : bytes.substr (0, end);

        if (byte < 0x80)
            break;
    }

    return bytes;
}

[[nodiscard]] bool isControl (juce::uint8 byte) noexcept
{
    return (byte < 0x20 && byte != '\n' && byte != '\t') || byte == 0x7f;
}
} // namespace

juce::String decode (const juce::MemoryBlock& reply)
{
    std::string_view bytes (static_cast<const char*> (reply.getData()), reply.getSize());
    bytes = withoutCutCharacter (bytes.substr (0, bytes.find ('\0')));

    if (bytes.starts_with (byteOrderMark))
        bytes.remove_prefix (byteOrderMark.size());

    const auto isLatin1 = ! isUtf8 (bytes);
    std::string text;
    text.reserve (bytes.size());

    for (size_t i = 0; i < bytes.size(); ++i)
    {
        const auto byte = juce::uint8 (bytes[i]);

        if (byte == '\r')
        {
            if (i + 1 == bytes.size() || bytes[i + 1] != '\n')
                text += '\n';
        }
        else if (isLatin1 && byte >= 0x80)
        {
            // 0x80 to 0x9f are control characters in Latin-1.
            if (byte >= 0xa0)
            {
                text += char (0xc0 | byte >> 6);
                text += char (0x80 | (byte & 0x3f));
            }
        }
        else if (! isControl (byte))
        {
            text += char (byte);
        }
    }

    return juce::String::fromUTF8 (text.data(), int (text.size()));
}

LatestVersion parseVersion (const juce::String& reply)
{
    LatestVersion latest;

    for (const auto& field : juce::StringArray::fromTokens (reply, ";", "\""))
    {
        const auto key = field.upToFirstOccurrenceOf (":", false, false).trim();
        const auto value = field.fromFirstOccurrenceOf (":", false, false).trim().unquoted().trim();

        if (key == "macVersion")
        {
            latest.version = VersionNumber::parse (value);
            latest.isBeta = VersionNumber::isBeta (value);
        }
        else if (key == "macReleaseDate")
        {
            latest.releaseDate = parseLeadingInteger (value);
        }
    }

    return latest;
}

juce::String parseChangeLog (const juce::String& reply)
{
    return reply.containsIgnoreCase ("the page you're looking for is not available") ? juce::String() : reply;
}

} // namespace mk::pluginCore::updateReplies
