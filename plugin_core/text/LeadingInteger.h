// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The whole number that the text begins with, after blanks and a sign; what follows it is ignored. Without
    one 0; beyond the range of 64 bits the nearest end of it. Any thread; any text. */
[[nodiscard]] juce::int64 parseLeadingInteger (const juce::String& text);

} // namespace mk::pluginCore
