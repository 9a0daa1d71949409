// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NumberText.h"

#include <charconv>
#include <cmath>

namespace mk::orlo::render
{

std::optional<double> parseNumber (const juce::String& text, const juce::String& unit)
{
    const auto bytes = text.toStdString();
    const auto* const end = bytes.data() + bytes.size();

    double value = 0.0;
    const auto parsed = std::from_chars (bytes.data(), end, value);

    if (parsed.ec != std::errc() || ! std::isfinite (value))
        return {};

    const auto rest = juce::String::fromUTF8 (parsed.ptr, int (end - parsed.ptr)).trim();

    if (rest.isNotEmpty() && ! rest.equalsIgnoreCase (unit))
        return {};

    return value;
}

std::optional<int> parseWholeNumber (const juce::String& text, int lowest, int highest)
{
    const auto bytes = text.toStdString();
    const auto* const end = bytes.data() + bytes.size();

    int value = 0;
    const auto parsed = std::from_chars (bytes.data(), end, value);

    if (parsed.ec != std::errc() || parsed.ptr != end || value < lowest || value > highest)
        return {};

    return value;
}

} // namespace mk::orlo::render
