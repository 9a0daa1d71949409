// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PreferredLanguage.h"

namespace mk::pluginCore
{

juce::String languageCodeFor (const juce::String& preferredLanguage)
{
    const auto language = preferredLanguage.upToFirstOccurrenceOf ("-", false, false);

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
