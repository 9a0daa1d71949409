// SPDX-License-Identifier: AGPL-3.0-or-later
// Keeps the terms that speakers of each language have chosen where a literal translation would be wrong or unusual.
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <map>

namespace mk::orlo::test
{
namespace
{
struct Term
{
    const char *code, *key, *value;
};

constexpr Term terms[] {
    { "fr", "Display", "Affichage" },
    { "fr", "Set Preset as Default", "Définir comme preset par défaut" },
    { "fr", "Frequency ruler", "Règle de fréquences" },
    { "fr", "Spectrogram analyser", "Analyseur à spectrogramme" },
    { "es", "Display", "Visualización" },
    { "es", "Show Piano", "Mostrar el piano" },
    { "es", "Hide Ruler", "Ocultar la regla" },
    { "es", "Spectrogram analyser", "Analizador con espectrograma" },
    { "pt", "FFT Size", "Tamanho FFT" },
    { "pt",
      "Show a looping spectrogram that updates in place",
      "Mostra um espectrograma em loop que se atualiza no mesmo lugar" },
    { "pt", "Spectrogram analyser", "Analisador com espectrograma" },
    { "it", "Settings", "Impostazioni" },
    { "it", "FFT Size", "Dimensione FFT" },
    { "it", "Show Piano", "Mostra tastiera" },
    { "it", "Piano keyboard", "Tastiera del pianoforte" },
    { "it", "Spectrogram analyser", "Analizzatore a spettrogramma" },
};

[[nodiscard]] std::map<juce::String, juce::String> read (const char* code)
{
    const TranslationFile file ("product", code);
    return { file.pairs.begin(), file.pairs.end() };
}

TEST (TranslationTerms, AreThoseOfTheLanguage)
{
    for (const auto& term : terms)
        EXPECT_EQ (read (term.code)[term.key], juce::String::fromUTF8 (term.value)) << term.code;
}

TEST (TranslationTerms, AreFreeOfLiteralTranslations)
{
    for (const auto& [key, value] : read ("pt"))
        EXPECT_FALSE (value.containsWholeWordIgnoreCase ("rola") || value.containsIgnoreCase ("rolagem")) << key;

    EXPECT_TRUE (read ("fr")["Auto-Pause: Pauses the display automatically when the DAW transport stops"].endsWith (
        juce::String::fromUTF8 ("quand la lecture s'arrête dans la DAW")));

    constexpr auto licence = "Free software under the GNU Affero General Public License, version 3 or later";
    EXPECT_TRUE (read ("fr")[licence].contains ("sous licence GNU"));
    EXPECT_TRUE (read ("it")[licence].contains ("con licenza GNU"));
}

} // namespace
} // namespace mk::orlo::test
