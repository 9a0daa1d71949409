// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** The user's first preferred language according to the system, such as "pt-BR", "en" or "zh-Hans". One file
    per platform. Empty if the system has none. Any thread. */
[[nodiscard]] juce::String getPreferredLanguage();

/** The environment variables that set the language of messages, in order of precedence. A variable that is
    not set is empty. */
struct LanguageVariables
{
    juce::String language; /**< LANGUAGE: a list separated by ":", the most preferred first */
    juce::String all;      /**< LC_ALL */
    juce::String messages; /**< LC_MESSAGES */
    juce::String lang;     /**< LANG */
};

/** The language in the first variable that is not empty, such as "pt-BR" for "pt_BR.UTF-8". Of a list only
    the first entry is used. The locales "C" and "POSIX" give "en"; empty if no variable is set. The process's
    locale is neither read nor set: it belongs to the host, and a host that writes "0.5" would write "0,5"
    after a change. Any thread. */
[[nodiscard]] juce::String preferredLanguageOf (const LanguageVariables& variables);

/** The two-letter code of a supported language, given by two or three letters, with or without a region.
    For any other language the part before the first "-". */
[[nodiscard]] juce::String languageCodeFor (const juce::String& preferredLanguage);

} // namespace mk::pluginCore
