// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The integer at the start of the text, after optional blanks and sign; the rest is ignored. Returns 0 if
    there is none; a number outside the 64-bit range is clamped. Any thread; any text. */
[[nodiscard]] juce::int64 parseLeadingInteger (const juce::String& text);

} // namespace mk::pluginCore
