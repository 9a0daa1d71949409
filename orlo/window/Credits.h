// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo
{

/** Who wrote what the product is made with, in the user's language, a paragraph a line: the libraries, the
    fonts, the colour maps. THIRD_PARTY_NOTICES.md has their licences. [message thread] */
[[nodiscard]] juce::String makeCredits();

} // namespace mk::orlo
