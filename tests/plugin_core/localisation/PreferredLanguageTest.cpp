// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/localisation/PreferredLanguage.h"

#include <gtest/gtest.h>

#include <utility>

namespace mk::pluginCore
{

TEST (PreferredLanguage, IsTheOneOfTheFirstVariableThatIsSet)
{
    EXPECT_EQ (preferredLanguageOf ({ "fr", "es_ES", "it_IT", "pt_BR" }), "fr");
    EXPECT_EQ (preferredLanguageOf ({ "", "es_ES.UTF-8", "it_IT", "pt_BR" }), "es-ES");
    EXPECT_EQ (preferredLanguageOf ({ "", "", "it_IT", "pt_BR" }), "it-IT");
    EXPECT_EQ (preferredLanguageOf ({ "", "", "", "pt_BR.UTF-8" }), "pt-BR");
    EXPECT_EQ (preferredLanguageOf ({}), "");
}

TEST (PreferredLanguage, IsTheFirstOfAListAndNoOther)
{
    EXPECT_EQ (preferredLanguageOf ({ "de:fr", "", "", "fr_FR.UTF-8" }), "de");
    EXPECT_EQ (preferredLanguageOf ({ "pt_BR:pt:en", "", "", "fr_FR.UTF-8" }), "pt-BR");
    EXPECT_EQ (languageCodeFor (preferredLanguageOf ({ "pt_BR:pt:en", "", "", "" })), "pt");
}

TEST (PreferredLanguage, HasNeitherEncodingNorVariant)
{
    EXPECT_EQ (preferredLanguageOf ({ "", "", "", "it_IT.ISO-8859-15@euro" }), "it-IT");
    EXPECT_EQ (preferredLanguageOf ({ "", "", "", "es@euro" }), "es");
}

TEST (PreferredLanguage, IsEnglishInTheLocalesOfThePlainSystem)
{
    for (const auto* const locale : { "C", "POSIX", "C.UTF-8", "C.utf8" })
    {
        EXPECT_EQ (preferredLanguageOf ({ "", "", "", locale }), "en") << locale;
        EXPECT_EQ (preferredLanguageOf ({ "", locale, "", "fr_FR.UTF-8" }), "en") << locale;
    }
}

TEST (PreferredLanguage, HasACodeOfTwoLettersWithoutItsRegion)
{
    constexpr std::pair<const char*, const char*> codes[] {
        { "pt-BR", "pt" },   { "pt-PT", "pt" },   { "en-GB", "en" },  { "fr", "fr" },  { "es-419", "es" },
        { "it-IT-x", "it" }, { "eng", "en" },     { "fre-CA", "fr" }, { "spa", "es" }, { "por", "pt" },
        { "ita", "it" },     { "zh-Hans", "zh" }, { "de", "de" },     { "EN", "EN" },  { "french", "french" },
        { "", "" },          { "-en", "" },
    };

    for (const auto& [language, code] : codes)
        EXPECT_EQ (languageCodeFor (language), code) << language;
}

} // namespace mk::pluginCore
