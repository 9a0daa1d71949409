// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/processor/LocalisedStringsManager.h"

#include "orlo/processor/AudioPluginAudioProcessor.h"
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#if JUCE_LINUX
    #include "tests/support/LocalisedUser.h"
#endif

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] juce::String utf8 (const char* text) { return juce::CharPointer_UTF8 (text); }

/** Removes the language of the process before and after each test. */
class ProductLanguages : public testing::Test
{
protected:
    ProductLanguages() { juce::LocalisedStrings::setCurrentMappings (nullptr); }
    ~ProductLanguages() override { juce::LocalisedStrings::setCurrentMappings (nullptr); }

    LocalisedStringsManager strings;
};
} // namespace

//==============================================================================
TEST_F (ProductLanguages, TranslateTheFrameworksAndTheProductsTexts)
{
    ASSERT_TRUE (strings.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Save"), "Enregistrer");
    EXPECT_EQ (juce::translate ("Speed"), "Vitesse");

    ASSERT_TRUE (strings.setLanguage ("pt"));
    EXPECT_EQ (juce::translate ("Save"), "Salvar");
    EXPECT_EQ (juce::translate ("Speed"), "Velocidade");

    ASSERT_TRUE (strings.setLanguage ("it"));
    EXPECT_EQ (juce::translate ("Yes"), utf8 ("S\xc3\xac"));
    EXPECT_EQ (juce::translate ("An update is available"), utf8 ("\xc3\x88 disponibile un aggiornamento"));

    ASSERT_TRUE (strings.setLanguage ("es"));
    EXPECT_EQ (juce::translate ("FFT Size"), utf8 ("Tama\xc3\xb1o FFT"));

    ASSERT_TRUE (strings.setLanguage ("en"));
    EXPECT_EQ (juce::translate ("Speed"), "Speed");
}

TEST_F (ProductLanguages, ContainEveryPairOfTheProductsFiles)
{
    for (const auto& code : getLanguageCodes())
    {
        ASSERT_TRUE (strings.setLanguage (code));

        for (const auto& [key, value] : TranslationFile ("product", code).pairs)
            EXPECT_EQ (juce::translate (key), value) << code;
    }
}

TEST_F (ProductLanguages, AreCaseSensitiveForTheProductsTexts)
{
    ASSERT_TRUE (strings.setLanguage ("fr"));
    EXPECT_EQ (juce::translate ("Freeze"), "Figer");
    EXPECT_EQ (juce::translate ("freeze"), "freeze");
    EXPECT_EQ (juce::translate ("FREEZE"), "FREEZE");
}

TEST_F (ProductLanguages, AreEnglishForAnUnsupportedCode)
{
    for (const auto* const code : { "zh", "", "EN", "fre", "pt-BR", "de" })
    {
        ASSERT_TRUE (strings.setLanguage ("fr"));
        EXPECT_FALSE (strings.setLanguage (code)) << code;
        EXPECT_EQ (strings.getLanguageCode(), "en");
        EXPECT_EQ (juce::translate ("Save"), "Save");
        EXPECT_EQ (juce::LocalisedStrings::getCurrentMappings()->getMappings().getValue ("Freeze", {}), "Freeze");
    }
}

TEST_F (ProductLanguages, AddNoProductTextsForAnUnknownCodeOrWithoutMappings)
{
    EXPECT_TRUE (strings.addProductStrings ("fr"));
    EXPECT_EQ (juce::translate ("Freeze"), "Freeze");

    ASSERT_TRUE (strings.setLanguage ("fr"));
    EXPECT_FALSE (strings.addProductStrings ("zh"));
    EXPECT_EQ (juce::translate ("Freeze"), "Figer");
}

TEST_F (ProductLanguages, CanBeInstalledByOneInstanceWhileAnotherTranslates)
{
    ASSERT_TRUE (strings.setLanguage ("fr"));
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
            LocalisedStringsManager other;
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

TEST_F (ProductLanguages, AreChosenByEachInstanceOfThePlugIn)
{
    const AudioPluginAudioProcessor first;
    ASSERT_NE (juce::LocalisedStrings::getCurrentMappings(), nullptr);
    const auto mappings = juce::LocalisedStrings::getCurrentMappings()->getMappings();
    EXPECT_TRUE (mappings.containsKey ("Freeze"));
    EXPECT_TRUE (mappings.containsKey ("Yes"));

    juce::LocalisedStrings::setCurrentMappings (nullptr);
    const AudioPluginAudioProcessor second;
    ASSERT_NE (juce::LocalisedStrings::getCurrentMappings(), nullptr);
    EXPECT_EQ (juce::LocalisedStrings::getCurrentMappings()->getMappings(), mappings);
}

//==============================================================================
#if JUCE_LINUX

TEST_F (LocalisedUser, GetsAFreshInstanceInTheirLanguageWithEnglishParameters)
{
    set ("LC_ALL", "fr_FR.UTF-8");

    const AudioPluginAudioProcessor first;
    const AudioPluginAudioProcessor second;
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

#endif

} // namespace mk::orlo::test
