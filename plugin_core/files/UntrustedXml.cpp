// SPDX-License-Identifier: AGPL-3.0-or-later
#include "UntrustedXml.h"

#include "RegularFile.h"
#include "plugin_core/text/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mk::pluginCore
{
namespace
{
constexpr size_t maxBytes = size_t { 4 } * 1024 * 1024;
constexpr size_t maxDepth = 100;
constexpr int maxElements = 2000;
constexpr int maxAttributes = 4000;

[[nodiscard]] juce::String toString (std::string_view text)
{
    return juce::String::fromUTF8 (text.data(), int (text.size()));
}

/** The character, as UTF-8, for the text between the "&" and ";" of a reference; empty if it is invalid. */
[[nodiscard]] std::string resolveReference (std::string_view reference)
{
    static constexpr std::array<std::pair<std::string_view, const char*>, 5> named {
        { { "amp", "&" }, { "quot", "\"" }, { "apos", "'" }, { "lt", "<" }, { "gt", ">" } }
    };

    for (const auto& [name, character] : named)
        if (reference == name)
            return character;

    if (! reference.starts_with ('#'))
        return {};

    const auto isHex = reference.starts_with ("#x") || reference.starts_with ("#X");
    const auto digits = reference.substr (isHex ? 2 : 1);
    const auto* const end = digits.data() + digits.size();
    juce::uint32 number = 0;
    const auto [stoppedAt, error] = std::from_chars (digits.data(), end, number, isHex ? 16 : 10);

    if (error != std::errc() || stoppedAt != end || number == 0 || ! isCharacter (number))
        return {};

    return juce::String::charToString (juce::juce_wchar (number)).toStdString();
}

/** Reads valid UTF-8 text in one pass. Each take function moves past what it has read; if the text holds
    something else, the reader must not be used further. */
class Reader
{
public:
    explicit Reader (std::string_view text) : rest (text) {}

    [[nodiscard]] std::unique_ptr<juce::XmlElement> readDocument()
    {
        do
        {
            if (! skipBetweenElements() || ! (take ("</") ? closeElement() : take ("<") && openElement()))
                return nullptr;
        } while (! openElements.empty());

        return skipBetweenElements() && rest.empty() ? std::move (root) : nullptr;
    }

private:
    [[nodiscard]] bool take (std::string_view token)
    {
        const auto found = rest.starts_with (token);

        if (found)
            rest.remove_prefix (token.size());

        return found;
    }

    /** Takes everything up to and including the token. */
    [[nodiscard]] bool takeThrough (std::string_view token, std::string_view& taken)
    {
        const auto length = rest.find (token);

        if (length == std::string_view::npos)
            return false;

        taken = rest.substr (0, length);
        rest.remove_prefix (length + token.size());
        return true;
    }

    bool skipSpace()
    {
        const auto length = std::min (rest.find_first_not_of (" \t\r\n"), rest.size());
        rest.remove_prefix (length);
        return length > 0;
    }

    /** False if a comment or a processing instruction is not closed. */
    [[nodiscard]] bool skipBetweenElements()
    {
        std::string_view skipped;

        for (;;)
        {
            skipSpace();

            if (take ("<!--"))
            {
                if (! takeThrough ("-->", skipped))
                    return false;
            }
            else if (take ("<?"))
            {
                if (! takeThrough ("?>", skipped))
                    return false;
            }
            else
            {
                return true;
            }
        }
    }

    /** Empty if there is no name. */
    [[nodiscard]] std::string_view takeName()
    {
        static constexpr std::string_view starting = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_";
        static constexpr std::string_view following =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789-:";

        if (rest.empty() || starting.find (rest.front()) == std::string_view::npos)
            return {};

        const auto name = rest.substr (0, rest.find_first_not_of (following));
        rest.remove_prefix (name.size());
        return name;
    }

    [[nodiscard]] bool openElement()
    {
        const auto name = takeName();

        if (name.empty() || openElements.size() >= maxDepth || ++numElements > maxElements)
            return false;

        auto element = std::make_unique<juce::XmlElement> (toString (name));
        auto& opened = *element;

        if (openElements.empty())
            root = std::move (element);
        else
            openElements.back()->addChildElement (element.release());

        for (;;)
        {
            const auto hasSpace = skipSpace();

            if (take ("/>"))
                return true;

            if (take (">"))
            {
                openElements.push_back (&opened);
                return true;
            }

            if (! hasSpace || ! readAttribute (opened))
                return false;
        }
    }

    [[nodiscard]] bool closeElement()
    {
        const auto name = takeName();
        skipSpace();

        if (openElements.empty() || toString (name) != openElements.back()->getTagName() || ! take (">"))
            return false;

        openElements.pop_back();
        return true;
    }

    [[nodiscard]] bool readAttribute (juce::XmlElement& element)
    {
        const auto name = toString (takeName());
        skipSpace();

        if (name.isEmpty() || element.hasAttribute (name) || ++numAttributes > maxAttributes || ! take ("="))
            return false;

        skipSpace();
        std::string_view raw;
        std::string value;

        if (! (take ("\"") ? takeThrough ("\"", raw) : take ("'") && takeThrough ("'", raw))
            || ! resolveReferences (raw, value))
            return false;

        element.setAttribute (name, toString (value));
        return true;
    }

    [[nodiscard]] static bool resolveReferences (std::string_view raw, std::string& value)
    {
        for (;;)
        {
            const auto length = std::min (raw.find_first_of ("&<"), raw.size());
            value += raw.substr (0, length);
            raw.remove_prefix (length);

            if (raw.empty())
                return true;

            const auto end = raw.find (';');

            if (raw.front() == '<' || end == std::string_view::npos)
                return false;

            const auto character = resolveReference (raw.substr (1, end - 1));

            if (character.empty())
                return false;

            value += character;
            raw.remove_prefix (end + 1);
        }
    }

    std::string_view rest;
    std::unique_ptr<juce::XmlElement> root;
    std::vector<juce::XmlElement*> openElements; // all inside the root
    int numElements = 0, numAttributes = 0;
};
} // namespace

//==============================================================================
std::unique_ptr<juce::XmlElement> parseUntrustedXml (const void* data, size_t numBytes)
{
    std::string_view text (static_cast<const char*> (data), std::min (numBytes, maxBytes + 1));
    text = text.substr (0, text.find ('\0'));

    if (text.starts_with ("\xef\xbb\xbf"))
        text.remove_prefix (3);

    return text.size() <= maxBytes && isUtf8 (text) ? Reader (text).readDocument() : nullptr;
}

std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::String& text)
{
    return parseUntrustedXml (text.toRawUTF8(), text.getNumBytesAsUTF8());
}

std::unique_ptr<juce::XmlElement> parseUntrustedXml (const juce::File& file)
{
    const auto content = readRegularFile (file, maxBytes);
    return content.has_value() ? parseUntrustedXml (content->getData(), content->getSize()) : nullptr;
}

} // namespace mk::pluginCore
