// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NumberText.h"

#include <limits>

namespace mk::pluginCore
{
namespace
{
using Pointer = juce::String::CharPointerType;

// The readers of JUCE count in int, and overflow on a long run of digits.
constexpr int maxExponentDigits = 4;
constexpr int maxMantissaDigits = 400;

void skipSign (Pointer& text)
{
    if (*text == '+' || *text == '-')
        ++text;
}

/** Skips digits and returns how many there were. */
[[nodiscard]] int skipDigits (Pointer& text)
{
    int count = 0;

    for (; *text >= '0' && *text <= '9'; ++text)
        ++count;

    return count;
}

/** Skips an exponent if there is one. False if there is a bad one. */
[[nodiscard]] bool skipExponent (Pointer& text)
{
    if (*text != 'e' && *text != 'E')
        return true;

    ++text;
    skipSign (text);
    const auto numDigits = skipDigits (text);
    return numDigits > 0 && numDigits <= maxExponentDigits;
}

[[nodiscard]] bool isNumber (const juce::String& text)
{
    auto p = text.getCharPointer().findEndOfWhitespace();
    skipSign (p);

    auto numDigits = skipDigits (p);

    if (*p == '.')
    {
        ++p;
        numDigits += skipDigits (p);
    }

    if (numDigits < 1 || numDigits > maxMantissaDigits || ! skipExponent (p))
        return false;

    return p.findEndOfWhitespace().isEmpty();
}
} // namespace

std::optional<double> parseNumber (const juce::String& text)
{
    if (! isNumber (text))
        return {};

    return text.getDoubleValue();
}

std::optional<int> parseInteger (const juce::String& text)
{
    using Limits = std::numeric_limits<int>;
    constexpr auto beyondAnyInt = juce::int64 (Limits::max()) + 1;

    auto p = text.getCharPointer().findEndOfWhitespace();
    const auto isNegative = *p == '-';
    skipSign (p);

    if (*p < '0' || *p > '9')
        return {};

    juce::int64 number = 0;

    for (; *p >= '0' && *p <= '9'; ++p)
        number = juce::jmin (number * 10 + juce::int64 (*p - '0'), beyondAnyInt);

    return int (juce::jlimit (juce::int64 (Limits::min()), juce::int64 (Limits::max()), isNegative ? -number : number));
}

} // namespace mk::pluginCore
