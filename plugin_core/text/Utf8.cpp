// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Utf8.h"

#include <array>

namespace mk::pluginCore
{
namespace
{
/** A pattern for the first byte of a character; the index in the table is the number of bytes that follow. */
struct Form
{
    juce::uint8 mask, lead;
    juce::uint32 smallest;
};

constexpr std::array<Form, 4> forms {
    { { 0x80, 0x00, 0 }, { 0xe0, 0xc0, 0x80 }, { 0xf0, 0xe0, 0x800 }, { 0xf8, 0xf0, 0x10000 } }
};

/** The length of the first character in bytes; 0 if it is invalid. The bytes must not be empty. */
[[nodiscard]] size_t getCharacterLength (std::string_view bytes) noexcept
{
    const auto first = juce::uint8 (bytes[0]);

    for (size_t numFollowing = 0; numFollowing < forms.size(); ++numFollowing)
    {
        const auto& form = forms[numFollowing];

        if ((first & form.mask) != form.lead)
            continue;

        if (bytes.size() <= numFollowing)
            return 0;

        auto codePoint = juce::uint32 (first & ~form.mask);

        for (const auto next : bytes.substr (1, numFollowing))
        {
            if ((juce::uint8 (next) & 0xc0) != 0x80)
                return 0;

            codePoint = codePoint << 6 | (juce::uint8 (next) & 0x3f);
        }

        return codePoint >= form.smallest && isCharacter (codePoint) ? numFollowing + 1 : 0;
    }

    return 0;
}
} // namespace

bool isUtf8 (std::string_view bytes) noexcept
{
    while (! bytes.empty())
    {
        const auto length = getCharacterLength (bytes);

        if (length == 0)
            return false;

        bytes.remove_prefix (length);
    }

    return true;
}

} // namespace mk::pluginCore
