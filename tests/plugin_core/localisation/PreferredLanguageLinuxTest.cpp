// SPDX-License-Identifier: AGPL-3.0-or-later
#include <juce_core/juce_core.h>

#if JUCE_LINUX

    #include "orlo/processor/AudioPluginAudioProcessor.h"
    #include "orlo/processor/LocalisedStringsManager.h"
    #include "plugin_core/localisation/PreferredLanguage.h"
    #include "tests/support/TemporaryFolder.h"

    #include <gtest/gtest.h>

    #include <clocale>
    #include <cstdlib>

namespace mk::pluginCore
{
namespace
{
/** A user whose system is set to a language, for which the locale is made on the spot. */
class LocalisedUser : public testing::Test
{
protected:
    LocalisedUser() { setenv ("LOCPATH", folder.get().getFullPathName().toRawUTF8(), 1); }

    ~LocalisedUser() override
    {
        unsetenv ("LC_ALL");
        unsetenv ("LOCPATH");
        juce::LocalisedStrings::setCurrentMappings (nullptr);
    }

    /** False if this machine has no source to make the locale from. */
    [[nodiscard]] bool setLocale (const juce::String& name) const
    {
        juce::ChildProcess localedef;
        const auto started = localedef.start (
            { "localedef", "-i", name, "-f", "UTF-8", folder.get().getChildFile (name + ".UTF-8").getFullPathName() });

        if (! started || ! localedef.waitForProcessToFinish (60000) || localedef.getExitCode() != 0)
            return false;

        setenv ("LC_ALL", (name + ".UTF-8").toRawUTF8(), 1);
        return true;
    }

private:
    const orlo::test::TemporaryFolder folder;
};
} // namespace

TEST_F (LocalisedUser, IsSpokenToInTheirLanguage)
{
    if (! setLocale ("pt_BR"))
        GTEST_SKIP() << "needs localedef and its sources";

    EXPECT_EQ (getPreferredLanguage(), "pt-BR");

    orlo::LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "pt");
    EXPECT_EQ (juce::translate ("Save"), "Salvar");
}

TEST_F (LocalisedUser, IsSpokenToByAFreshInstanceWhoseParametersStayEnglish)
{
    if (! setLocale ("fr_FR"))
        GTEST_SKIP() << "needs localedef and its sources";

    const orlo::AudioPluginAudioProcessor first;
    const orlo::AudioPluginAudioProcessor second;
    EXPECT_EQ (juce::translate ("Save"), "Enregistrer");
    EXPECT_EQ (juce::translate ("Speed"), "Vitesse");

    for (const auto* const instance : { &first, &second })
    {
        const auto names = [instance]
        {
            juce::StringArray all;

            for (const auto* const parameter : instance->getParameters())
                all.add (parameter->getName (100));

            return all;
        }();

        EXPECT_TRUE (names.contains ("Speed"));
        EXPECT_FALSE (names.contains ("Vitesse"));
    }
}

TEST_F (LocalisedUser, IsSpokenToInEnglishIfWeDoNotSpeakTheirLanguage)
{
    if (! setLocale ("de_DE"))
        GTEST_SKIP() << "needs localedef and its sources";

    EXPECT_EQ (getPreferredLanguage(), "de-DE");

    orlo::LocalisedStringsManager manager;
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

    orlo::LocalisedStringsManager manager;
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
