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

TEST_F (LocalisedUser, GetsTheirLanguage)
{
    set ("LANG", "pt_BR.UTF-8");
    EXPECT_EQ (getPreferredLanguage(), "pt-BR");

    LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "pt");
    EXPECT_EQ (juce::translate ("Save"), "Salvar");
}

TEST_F (LocalisedUser, GetsEnglishIfTheirFirstLanguageIsNotTranslated)
{
    set ("LANGUAGE", "de:fr");
    set ("LANG", "fr_FR.UTF-8");
    EXPECT_EQ (getPreferredLanguage(), "de");

    LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "en");
    EXPECT_EQ (juce::translate ("Save"), "Save");
}

TEST_F (LocalisedUser, GetsTheLanguageOfMessagesWhateverTheRegion)
{
    set ("LANG", "en_US.UTF-8");
    set ("LC_ADDRESS", "fr_FR.UTF-8");
    EXPECT_EQ (getPreferredLanguage(), "en-US");
}

TEST_F (LocalisedUser, KeepsTheHostsOwnLocaleAndItsDecimalPoint)
{
    set ("LANG", "fr_FR.UTF-8");
    const std::string before = std::setlocale (LC_ALL, nullptr);
    EXPECT_EQ (getPreferredLanguage(), "fr-FR");
    EXPECT_EQ (std::setlocale (LC_ALL, nullptr), before);
    EXPECT_STREQ (std::localeconv()->decimal_point, ".");
}

TEST_F (LocalisedUser, GetsEnglishWithoutALocale)
{
    EXPECT_EQ (getPreferredLanguage(), "");

    LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "en");

    set ("LC_ALL", "C");
    EXPECT_EQ (getPreferredLanguage(), "en");
}

} // namespace mk::pluginCore

#endif
