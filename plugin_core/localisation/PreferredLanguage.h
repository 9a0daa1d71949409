// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The system's answer, one file per platform: the user's first preferred language, as in "pt-BR", "en" or
    "zh-Hans". Empty if the system has none. Any thread. */
[[nodiscard]] juce::String getPreferredLanguage();

/** The variables that name the language of messages where a system keeps it in the environment, the strongest
    first. What is not set is empty. */
struct LanguageVariables
{
    juce::String language; /**< LANGUAGE: a list, divided by ":", the most preferred first */
    juce::String all;      /**< LC_ALL */
    juce::String messages; /**< LC_MESSAGES */
    juce::String lang;     /**< LANG */
};

/** The language that the first variable with a content names, as in "pt-BR" for "pt_BR.UTF-8". Of a list only
    the first entry counts. The locales "C" and "POSIX" are "en"; empty if no variable is set. The process's
    locale is neither read nor set: it belongs to the host, and a host that writes "0.5" would write "0,5"
    after a change. Any thread. */
[[nodiscard]] juce::String preferredLanguageOf (const LanguageVariables& variables);

/** The code of two letters for a language that we speak, be it given by two letters or three, with or
    without a region; what stands before the first "-" for any other. */
[[nodiscard]] juce::String languageCodeFor (const juce::String& preferredLanguage);

} // namespace mk::pluginCore
