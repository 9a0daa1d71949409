// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NumberText.h"

#include "LeadingInteger.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace mk::pluginCore
{
namespace
{
using Pointer = juce::String::CharPointerType;

// JUCE's number parsers count in int, which overflows on a long run of digits.
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

/** Skips an exponent if there is one. False if it is malformed. */
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

std::optional<double> parseQuantity (const juce::String& text, const juce::String& unit)
{
    const auto trimmed = text.trimEnd();
    const auto hasUnit = unit.isNotEmpty() && trimmed.endsWithIgnoreCase (unit);
    const auto number = parseNumber (hasUnit ? trimmed.dropLastCharacters (unit.length()) : trimmed);

    return number.has_value() && std::isfinite (*number) ? number : std::nullopt;
}

std::optional<int> parseWholeNumber (const juce::String& text, int lowest, int highest)
{
    const auto bytes = text.toStdString();
    const auto* const end = bytes.data() + bytes.size();

    int value = 0;
    const auto [stopped, error] = std::from_chars (bytes.data(), end, value);

    if (error != std::errc() || stopped != end || value < lowest || value > highest)
        return {};

    return value;
}

std::optional<int> parseInteger (const juce::String& text)
{
    using Limits = std::numeric_limits<int>;

    auto p = text.getCharPointer().findEndOfWhitespace();
    skipSign (p);

    if (*p < '0' || *p > '9')
        return {};

    return int (juce::jlimit<juce::int64> (Limits::min(), Limits::max(), parseLeadingInteger (text)));
}

} // namespace mk::pluginCore
