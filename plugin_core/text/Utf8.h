// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <string_view>

namespace mk::pluginCore
{

/** Whether the number is a valid code point and not a surrogate. */
[[nodiscard]] constexpr bool isCharacter (juce::uint32 codePoint) noexcept
{
    return codePoint <= 0x10ffff && (codePoint < 0xd800 || codePoint > 0xdfff);
}

/** Whether all bytes are valid UTF-8, each character in its shortest form. JUCE's own check accepts a
    character whose continuation bytes are missing, and its strings then read past the end. */
[[nodiscard]] bool isUtf8 (std::string_view bytes) noexcept;

} // namespace mk::pluginCore
