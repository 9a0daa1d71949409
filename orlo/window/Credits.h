// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo
{

/** The authors of the libraries, fonts and colour maps that the product uses, in the user's language, one line
    per paragraph. THIRD_PARTY_NOTICES.md has their licences. [message thread] */
[[nodiscard]] juce::String makeCredits();

} // namespace mk::orlo
