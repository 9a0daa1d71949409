// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The system's answer, one file per platform: the user's first preferred language, as in "pt-BR", "en" or
    "zh-Hans". Empty if the system has none. Any thread. */
[[nodiscard]] juce::String getPreferredLanguage();

/** The code of two letters for a language that we speak, be it given by two letters or three, with or
    without a region; what stands before the first "-" for any other. */
[[nodiscard]] juce::String languageCodeFor (const juce::String& preferredLanguage);

} // namespace mk::pluginCore
