// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NumberText.h"

#include <charconv>
#include <cmath>

namespace mk::orlo::host
{

std::optional<double> parseNumber (const juce::String& text)
{
    const auto digits = text.trim().toStdString();
    auto value = 0.0;
    const auto* const end = digits.data() + digits.size();
    const auto [stopped, error] = std::from_chars (digits.data(), end, value);

    if (error != std::errc {} || stopped != end || ! std::isfinite (value))
        return std::nullopt;

    return value;
}

} // namespace mk::orlo::host
