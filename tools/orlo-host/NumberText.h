// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <optional>

namespace mk::orlo::host
{

/** Reads a finite decimal number, whatever the locale. Nothing if there is anything else in the text. */
[[nodiscard]] std::optional<double> parseNumber (const juce::String& text);

} // namespace mk::orlo::host
