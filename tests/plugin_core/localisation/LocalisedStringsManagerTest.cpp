// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/localisation/LocalisedStringsManager.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "orlo/processor/LocalisedStringsManager.h"
#include "plugin_core/localisation/PreferredLanguage.h"
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

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

    LocalisedStringsManager framework;
    orlo::LocalisedStringsManager product;
};
} // namespace

//==============================================================================
TEST_F (Languages, ShowTheEnglishOfTheCodeBeforeAnyIsChosen)
{
    EXPECT_EQ (juce::translate ("Save as"), "Save as");
    EXPECT_TRUE (product.getLanguageCode().isEmpty());
}

TEST_F (Languages, AreFiveByTheirCodes)
{
    for (const auto& code : orlo::test::getLanguageCodes())
    {
        EXPECT_TRUE (product.setLanguage (code)) << code;
        EXPECT_EQ (product.getLanguageCode(), code);
    }

    EXPECT_EQ (juce::LocalisedStrings::getCurrentMappings()->getLanguageName(), "[italian]");
}

TEST_F (Languages, TranslateTheFrameworksAndTheProductsTexts)
{
    ASSERT_TRUE (product.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Save"), "Enregistrer");
    EXPECT_EQ (juce::translate ("Speed"), "Vitesse");

    ASSERT_TRUE (product.setLanguage ("pt"));
    EXPECT_EQ (juce::translate ("Save"), "Salvar");
    EXPECT_EQ (juce::translate ("Speed"), "Velocidade");

    ASSERT_TRUE (product.setLanguage ("it"));
    EXPECT_EQ (juce::translate ("Yes"), utf8 ("S\xc3\xac"));
    EXPECT_EQ (juce::translate ("An update is available"), utf8 ("\xc3\x88 disponibile un aggiornamento"));

    ASSERT_TRUE (product.setLanguage ("es"));
    EXPECT_EQ (juce::translate ("FFT Size"), utf8 ("Tama\xc3\xb1o FFT"));

    ASSERT_TRUE (product.setLanguage ("en"));
    EXPECT_EQ (juce::translate ("Speed"), "Speed");
}

TEST_F (Languages, HoldEveryPairOfTheirFiles)
{
    for (const auto& code : orlo::test::getLanguageCodes())
    {
        ASSERT_TRUE (product.setLanguage (code));

        for (const auto& [key, value] : orlo::test::TranslationFile ("product", code).pairs)
            EXPECT_EQ (juce::translate (key), value) << code;

        ASSERT_TRUE (framework.setLanguage (code));

        for (const auto& [key, value] : orlo::test::TranslationFile ("framework", code).pairs)
            EXPECT_EQ (juce::translate (key), value) << code;
    }
}

TEST_F (Languages, LeaveATextWithoutTranslationAsItIs)
{
    ASSERT_TRUE (product.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("No such text"), "No such text");
}

TEST_F (Languages, FindTheFrameworksTextsInAnyCase)
{
    ASSERT_TRUE (product.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Close"), "fermer");
    EXPECT_EQ (juce::translate ("About"), utf8 ("\xc3\x80 propos"));
    EXPECT_EQ (juce::translate ("about"), utf8 ("\xc3\xa0 propos"));
}

TEST_F (Languages, LeaveTheProductsTextsInAnotherCaseEnglish)
{
    ASSERT_TRUE (product.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Freeze"), "Figer");
    EXPECT_EQ (juce::translate ("freeze"), "freeze");
    EXPECT_EQ (juce::translate ("FREEZE"), "FREEZE");
}

TEST_F (Languages, OfTheFrameworkKnowNothingOfTheProduct)
{
    ASSERT_TRUE (framework.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Freeze"), "Freeze");
    EXPECT_FALSE (framework.addProductStrings ("fr"));
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

    // The search without regard to case is the framework's alone.
    EXPECT_EQ (juce::translate ("Close"), "fermer");
    EXPECT_EQ (juce::translate ("New"), "New");
}

TEST_F (Languages, AreEnglishForACodeThatWeDoNotSpeak)
{
    for (const auto* const code : { "zh", "", "EN", "fre", "pt-BR", "de" })
    {
        ASSERT_TRUE (product.setLanguage ("fr"));
        EXPECT_FALSE (product.setLanguage (code)) << code;
        EXPECT_EQ (product.getLanguageCode(), "en");
        EXPECT_EQ (juce::translate ("Save"), "Save");
        EXPECT_EQ (juce::LocalisedStrings::getCurrentMappings()->getMappings().getValue ("Freeze", {}), "Freeze");
    }
}

TEST_F (Languages, TakeNoProductTextsOfAnUnknownCodeAndNoneWithoutMappings)
{
    EXPECT_TRUE (product.addProductStrings ("fr"));
    EXPECT_EQ (juce::translate ("Freeze"), "Freeze");

    ASSERT_TRUE (product.setLanguage ("fr"));
    EXPECT_FALSE (product.addProductStrings ("zh"));
    EXPECT_EQ (juce::translate ("Freeze"), "Figer");
}

TEST_F (Languages, CanBeInstalledByOneInstanceWhileAnotherTranslates)
{
    ASSERT_TRUE (product.setLanguage ("fr"));
    std::atomic<bool> finished { false };
    std::atomic<int> numWrong { 0 };

    std::thread reader (
        [&]
        {
            while (! finished.load (std::memory_order_acquire))
                if (juce::translate ("Save") != "Enregistrer")
                    numWrong.fetch_add (1, std::memory_order_relaxed);
        });

    const auto install = []
    {
        for (int i = 0; i < 100; ++i)
        {
            orlo::LocalisedStringsManager other;
            other.setLanguage ("fr");
        }
    };

    std::thread installer (install);
    install();
    installer.join();
    finished.store (true, std::memory_order_release);
    reader.join();

    EXPECT_EQ (numWrong.load (std::memory_order_relaxed), 0);
    EXPECT_EQ (juce::translate ("Freeze"), "Figer");
}

TEST_F (Languages, AreChosenByEachInstanceOfThePlugIn)
{
    const orlo::AudioPluginAudioProcessor first;
    ASSERT_NE (juce::LocalisedStrings::getCurrentMappings(), nullptr);
    const auto mappings = juce::LocalisedStrings::getCurrentMappings()->getMappings();
    EXPECT_TRUE (mappings.containsKey ("Freeze"));
    EXPECT_TRUE (mappings.containsKey ("Yes"));

    juce::LocalisedStrings::setCurrentMappings (nullptr);
    const orlo::AudioPluginAudioProcessor second;
    ASSERT_NE (juce::LocalisedStrings::getCurrentMappings(), nullptr);
    EXPECT_EQ (juce::LocalisedStrings::getCurrentMappings()->getMappings(), mappings);
}

//==============================================================================
TEST (PreferredLanguage, CountsUpToTheRegion)
{
    EXPECT_EQ (languageCodeFor ("pt-BR"), "pt");
    EXPECT_EQ (languageCodeFor ("pt-PT"), "pt");
    EXPECT_EQ (languageCodeFor ("en-GB"), "en");
    EXPECT_EQ (languageCodeFor ("fr"), "fr");
    EXPECT_EQ (languageCodeFor ("es-419"), "es");
    EXPECT_EQ (languageCodeFor ("it-IT-x"), "it");
}

TEST (PreferredLanguage, MayHaveThreeLetters)
{
    EXPECT_EQ (languageCodeFor ("eng"), "en");
    EXPECT_EQ (languageCodeFor ("fre-CA"), "fr");
    EXPECT_EQ (languageCodeFor ("spa"), "es");
    EXPECT_EQ (languageCodeFor ("por"), "pt");
    EXPECT_EQ (languageCodeFor ("ita"), "it");
}

TEST (PreferredLanguage, IsPassedOnIfWeDoNotSpeakIt)
{
    EXPECT_EQ (languageCodeFor ("zh-Hans"), "zh");
    EXPECT_EQ (languageCodeFor ("de"), "de");
    EXPECT_EQ (languageCodeFor ("EN"), "EN");
    EXPECT_EQ (languageCodeFor ("french"), "french");
    EXPECT_EQ (languageCodeFor (""), "");
    EXPECT_EQ (languageCodeFor ("-en"), "");
}

} // namespace mk::pluginCore
