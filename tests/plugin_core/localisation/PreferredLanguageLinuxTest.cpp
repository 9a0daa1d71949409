// SPDX-License-Identifier: AGPL-3.0-or-later
#include <juce_core/juce_core.h>

#if JUCE_LINUX

    #include "plugin_core/localisation/LocalisedStringsManager.h"
    #include "plugin_core/localisation/PreferredLanguage.h"
    #include "tests/support/LocalisedUser.h"

    #include <clocale>

namespace mk::pluginCore
{
using orlo::test::LocalisedUser;

TEST_F (LocalisedUser, IsSpokenToInTheirLanguage)
{
    if (! setLocale ("pt_BR"))
        GTEST_SKIP() << "needs localedef and its sources";

    EXPECT_EQ (getPreferredLanguage(), "pt-BR");

    LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "pt");
    EXPECT_EQ (juce::translate ("Save"), "Salvar");
}

TEST_F (LocalisedUser, IsSpokenToInEnglishIfWeDoNotSpeakTheirLanguage)
{
    if (! setLocale ("de_DE"))
        GTEST_SKIP() << "needs localedef and its sources";

    EXPECT_EQ (getPreferredLanguage(), "de-DE");

    LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "en");
    EXPECT_EQ (juce::translate ("Save"), "Save");
}

TEST_F (LocalisedUser, KeepsTheHostsOwnLocaleAndItsDecimalPoint)
{
    if (! setLocale ("fr_FR"))
        GTEST_SKIP() << "needs localedef and its sources";

    const std::string before = std::setlocale (LC_ALL, nullptr);
    EXPECT_EQ (getPreferredLanguage(), "fr-FR");
    EXPECT_EQ (std::setlocale (LC_ALL, nullptr), before);
    EXPECT_STREQ (std::localeconv()->decimal_point, ".");
}

TEST_F (LocalisedUser, WithALocaleThatDoesNotExistIsSpokenToInEnglish)
{
    setenv ("LC_ALL", "xx_XX.UTF-8", 1);
    EXPECT_EQ (getPreferredLanguage(), "");

    LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "en");
}

TEST_F (LocalisedUser, WithoutALocaleIsSpokenToInEnglish)
{
    setenv ("LC_ALL", "C", 1);
    EXPECT_EQ (getPreferredLanguage(), "");
}

} // namespace mk::pluginCore

#endif
