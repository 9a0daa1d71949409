// SPDX-License-Identifier: AGPL-3.0-or-later
#include <juce_core/juce_core.h>

#if JUCE_LINUX

    #include "orlo/processor/AudioPluginAudioProcessor.h"
    #include "orlo/processor/LocalisedStringsManager.h"
    #include "plugin_core/localisation/PreferredLanguage.h"

    #include <gtest/gtest.h>

    #include <clocale>
    #include <cstdlib>
    #include <map>
    #include <optional>
    #include <string>

namespace mk::pluginCore
{
namespace
{
/** A user whose system speaks what a test sets, and nothing else. */
class LocalisedUser : public testing::Test
{
protected:
    LocalisedUser()
    {
        for (const auto* const name : { "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_ADDRESS", "LANG" })
        {
            const auto* const value = std::getenv (name);
            former[name] = value != nullptr ? std::optional<std::string> (value) : std::nullopt;
            unsetenv (name);
        }
    }

    ~LocalisedUser() override
    {
        for (const auto& [name, value] : former)
        {
            if (value.has_value())
                setenv (name.c_str(), value->c_str(), 1);
            else
                unsetenv (name.c_str());
        }

        juce::LocalisedStrings::setCurrentMappings (nullptr);
    }

    static void set (const char* name, const char* value) { setenv (name, value, 1); }

private:
    std::map<std::string, std::optional<std::string>> former;
};
} // namespace

TEST_F (LocalisedUser, IsSpokenToInTheirLanguage)
{
    set ("LANG", "pt_BR.UTF-8");
    EXPECT_EQ (getPreferredLanguage(), "pt-BR");

    orlo::LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "pt");
    EXPECT_EQ (juce::translate ("Save"), "Salvar");
}

TEST_F (LocalisedUser, IsSpokenToByAFreshInstanceWhoseParametersStayEnglish)
{
    set ("LC_ALL", "fr_FR.UTF-8");

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

TEST_F (LocalisedUser, IsSpokenToInEnglishIfWeDoNotSpeakTheirFirstLanguage)
{
    set ("LANGUAGE", "de:fr");
    set ("LANG", "fr_FR.UTF-8");
    EXPECT_EQ (getPreferredLanguage(), "de");

    orlo::LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "en");
    EXPECT_EQ (juce::translate ("Save"), "Save");
}

TEST_F (LocalisedUser, IsSpokenToInTheLanguageOfMessagesWhateverTheRegion)
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

TEST_F (LocalisedUser, WithoutALocaleIsSpokenToInEnglish)
{
    EXPECT_EQ (getPreferredLanguage(), "");

    orlo::LocalisedStringsManager manager;
    manager.chooseLanguage();
    EXPECT_EQ (manager.getLanguageCode(), "en");

    set ("LC_ALL", "C");
    EXPECT_EQ (getPreferredLanguage(), "en");
}

} // namespace mk::pluginCore

#endif
