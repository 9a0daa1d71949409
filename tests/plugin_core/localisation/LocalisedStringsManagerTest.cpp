// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/localisation/LocalisedStringsManager.h"

#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{
namespace
{
[[nodiscard]] juce::String utf8 (const char* text) { return juce::CharPointer_UTF8 (text); }

/** Each test begins, and leaves the process, without any language. */
class Languages : public testing::Test
{
protected:
    Languages() { juce::LocalisedStrings::setCurrentMappings (nullptr); }
    ~Languages() override { juce::LocalisedStrings::setCurrentMappings (nullptr); }

    LocalisedStringsManager strings;
};
} // namespace

//==============================================================================
TEST_F (Languages, ShowTheEnglishOfTheSourcesBeforeAnyIsChosen)
{
    EXPECT_EQ (juce::translate ("Save as"), "Save as");
    EXPECT_TRUE (strings.getLanguageCode().isEmpty());
}

TEST_F (Languages, AreFiveByTheirCodes)
{
    for (const auto& code : orlo::test::getLanguageCodes())
    {
        EXPECT_TRUE (strings.setLanguage (code)) << code;
        EXPECT_EQ (strings.getLanguageCode(), code);
    }

    EXPECT_EQ (juce::LocalisedStrings::getCurrentMappings()->getLanguageName(), "[italian]");
}

TEST_F (Languages, HoldEveryPairOfTheFrameworksFiles)
{
    for (const auto& code : orlo::test::getLanguageCodes())
    {
        ASSERT_TRUE (strings.setLanguage (code));

        for (const auto& [key, value] : orlo::test::TranslationFile ("framework", code).pairs)
            EXPECT_EQ (juce::translate (key), value) << code;
    }
}

TEST_F (Languages, LeaveATextWithoutTranslationAsItIs)
{
    ASSERT_TRUE (strings.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("No such text"), "No such text");
}

TEST_F (Languages, FindTheFrameworksTextsInAnyCase)
{
    ASSERT_TRUE (strings.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Close"), "fermer");
    EXPECT_EQ (juce::translate ("About"), utf8 ("\xc3\x80 propos"));
    EXPECT_EQ (juce::translate ("about"), utf8 ("\xc3\xa0 propos"));
}

TEST_F (Languages, OfTheFrameworkLackTheProductsTexts)
{
    ASSERT_TRUE (strings.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Freeze"), "Freeze");
    EXPECT_FALSE (strings.addProductStrings ("fr"));
}

TEST_F (Languages, ShowTheProductsWordingWhereBothHaveAKey)
{
    class Rewording : public LocalisedStringsManager
    {
    public:
        bool addProductStrings (const juce::String&) override
        {
            addToInstalledStrings (
                "language: [french]\ncountries: [fr]\n\"close\" = \"quitter\"\n\"new\" = \"nouveau\"");
            return true;
        }
    };

    Rewording rewording;
    ASSERT_TRUE (rewording.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("close"), "quitter");
    EXPECT_EQ (juce::translate ("new"), "nouveau");

    // Only the framework's texts are found regardless of case.
    EXPECT_EQ (juce::translate ("Close"), "fermer");
    EXPECT_EQ (juce::translate ("New"), "New");
}

TEST_F (Languages, AreEnglishForAnUnknownCode)
{
    for (const auto* const code : { "zh", "", "EN", "fre", "pt-BR", "de" })
    {
        ASSERT_TRUE (strings.setLanguage ("fr"));
        EXPECT_FALSE (strings.setLanguage (code)) << code;
        EXPECT_EQ (strings.getLanguageCode(), "en");
        EXPECT_EQ (juce::translate ("Save"), "Save");
    }
}

} // namespace mk::pluginCore
