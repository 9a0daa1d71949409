// SPDX-License-Identifier: AGPL-3.0-or-later
#include "VersionNumber.h"

#include "plugin_core/text/NumberText.h"

namespace mk::pluginCore
{
namespace
{
constexpr auto betaMark = "beta";

[[nodiscard]] int parsePart (const juce::String& text) { return parseInteger (text).value_or (0); }
} // namespace

bool VersionNumber::isBeta (const juce::String& text) { return text.containsIgnoreCase (betaMark); }

VersionNumber VersionNumber::parse (const juce::String& text)
{
    // Without a beta mark, upToFirstOccurrenceOf() returns the whole text.
    const auto numbers =
        juce::StringArray::fromTokens (text.upToFirstOccurrenceOf (betaMark, false, true).trim(), ".", {});
    const auto beta = isBeta (text) ? parsePart (text.fromFirstOccurrenceOf (betaMark, false, true)) : finalRelease;

    return { parsePart (numbers[0]), parsePart (numbers[1]), parsePart (numbers[2]), beta };
}

juce::int64 VersionNumber::getRank() const noexcept
{
    return juce::int64 (major) * 10000 + juce::int64 (minor) * 1000 + juce::int64 (patch) * 100 + beta;
}

} // namespace mk::pluginCore
