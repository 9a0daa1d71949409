// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PreferredLanguage.h"

namespace mk::pluginCore
{

juce::String preferredLanguageOf (const LanguageVariables& variables)
{
    for (const auto& variable : { variables.language, variables.all, variables.messages, variables.lang })
    {
        // A locale is written "language_REGION.ENCODING@variant".
        const auto list = juce::StringArray::fromTokens (variable, ":", {});
        const auto locale =
            list[0].trim().upToFirstOccurrenceOf (".", false, false).upToFirstOccurrenceOf ("@", false, false);

        if (locale == "C" || locale == "POSIX")
            return "en";

        if (locale.isNotEmpty())
            return locale.replaceCharacter ('_', '-');
    }

    return {};
}

juce::String languageCodeFor (const juce::String& preferredLanguage)
{
    auto language = preferredLanguage.upToFirstOccurrenceOf ("-", false, false);

    if (language == "en" || language == "eng")
        return "en";

    if (language == "fr" || language == "fre")
        return "fr";

    if (language == "es" || language == "spa")
        return "es";

    if (language == "pt" || language == "por")
        return "pt";

    if (language == "it" || language == "ita")
        return "it";

    return language;
}

} // namespace mk::pluginCore
