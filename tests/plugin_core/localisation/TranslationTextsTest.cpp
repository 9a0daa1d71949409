// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/support/SourceTree.h"
#include "tests/support/TranslationFile.h"

#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <set>
#include <utility>
#include <vector>

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] std::set<juce::String> toSet (const juce::StringArray& strings)
{
    return { strings.begin(), strings.end() };
}

[[nodiscard]] int count (const juce::String& text, const juce::String& part)
{
    return (text.length() - text.replace (part, {}).length()) / part.length();
}

/** Runs the check on each of the ten texts. */
template <typename Check>
void forEachText (Check check)
{
    for (const auto& set : getTranslationSets())
    {
        for (const auto& code : getLanguageCodes())
        {
            SCOPED_TRACE ((set + " " + code).toStdString());
            check (set, code, TranslationFile (set, code));
        }
    }
}
} // namespace

TEST (TranslationTexts, NameTheirLanguageAndItsCountry)
{
    const std::map<juce::String, juce::String> names {
        { "en", "english" }, { "fr", "french" }, { "es", "spanish" }, { "pt", "portuguese (br)" }, { "it", "italian" }
    };

    forEachText (
        [&names] (const juce::String&, const juce::String& code, const TranslationFile& text)
        {
            EXPECT_EQ (text.language, names.at (code));
            EXPECT_EQ (text.countries, code);
        });
}

TEST (TranslationTexts, HaveTheKeysOfTheEnglishOneInItsOrder)
{
    forEachText (
        [] (const juce::String& set, const juce::String&, const TranslationFile& text)
        {
            EXPECT_FALSE (text.pairs.empty());
            EXPECT_EQ (text.getKeys().joinIntoString ("\n"),
                       TranslationFile (set, "en").getKeys().joinIntoString ("\n"));
        });
}

TEST (TranslationTexts, HaveEachKeyOnce)
{
    forEachText (
        [] (const juce::String&, const juce::String&, const TranslationFile& text)
        {
            auto keys = text.getKeys();
            keys.removeDuplicates (false);
            EXPECT_EQ (size_t (keys.size()), text.pairs.size());
        });
}

TEST (TranslationTexts, HaveEnglishValuesEqualToTheirKeys)
{
    for (const auto& set : getTranslationSets())
        for (const auto& [key, value] : TranslationFile (set, "en").pairs)
            EXPECT_EQ (key, value);
}

TEST (TranslationTexts, HoldTheUpdateNoticeInBothSets)
{
    for (const auto& set : getTranslationSets())
        for (const auto* const key : { "An update is available", "proceed to download page", "close" })
            EXPECT_TRUE (TranslationFile (set, "en").getKeys().contains (key)) << set << ": " << key;
}

TEST (TranslationTexts, HaveNoEmptyOrPaddedValue)
{
    forEachText (
        [] (const juce::String&, const juce::String&, const TranslationFile& text)
        {
            for (const auto& [key, value] : text.pairs)
            {
                EXPECT_TRUE (value.isNotEmpty()) << key;
                EXPECT_EQ (value, value.trim()) << key;
            }
        });
}

TEST (TranslationTexts, NameTheScalesInTheHelpAsTheBoxDoes)
{
    for (const auto& code : getLanguageCodes())
    {
        const TranslationFile text ("product", code);
        const std::map<juce::String, juce::String> values (text.pairs.begin(), text.pairs.end());
        const auto scales = "(" + values.at ("Linear") + ", Log, Mel, Bark, ERB)";
        EXPECT_TRUE (values.at ("Choose how frequencies are distributed vertically (Linear, Log, Mel, Bark, ERB)")
                         .contains (scales))
            << code;
    }
}

TEST (TranslationTexts, KeepPlaceholdersAndDots)
{
    forEachText (
        [] (const juce::String&, const juce::String&, const TranslationFile& text)
        {
            for (const auto& [key, value] : text.pairs)
                for (const auto* const part : { "FLNM", "%s", "\\n", "...", "**" })
                    EXPECT_EQ (count (key, part), count (value, part)) << key << ": " << part;
        });
}

TEST (TranslationTexts, AreWrittenWithLettersThatTheFontsHave)
{
    // Latin-1: nothing of these five languages needs more, and every text font has it.
    forEachText (
        [] (const juce::String&, const juce::String&, const TranslationFile& text)
        {
            for (const auto& [key, value] : text.pairs)
                for (auto p = value.getCharPointer(); ! p.isEmpty(); ++p)
                    EXPECT_LT (*p, juce::juce_wchar (0x100)) << value;
        });
}

TEST (TranslationTexts, DifferFromOneLanguageToTheNext)
{
    for (const auto& set : getTranslationSets())
    {
        std::set<juce::String> contents;

        for (const auto& code : getLanguageCodes())
        {
            juce::String content;

            for (const auto& [key, value] : TranslationFile (set, code).pairs)
                content << value << "\n";

            EXPECT_TRUE (contents.insert (content).second) << set << " " << code;
        }
    }
}

//==============================================================================
namespace
{
/** The position of the parenthesis that closes the one at the given position; literals and their escapes are
    skipped. */
[[nodiscard]] size_t findClosingParenthesis (const std::string& text, size_t open)
{
    int depth = 0;
    bool inLiteral = false;

    for (auto i = open; i < text.size(); ++i)
    {
        if (inLiteral && text[i] == '\\')
            ++i;
        else if (text[i] == '"')
            inLiteral = ! inLiteral;
        else if (! inLiteral && text[i] == '(')
            ++depth;
        else if (! inLiteral && text[i] == ')' && --depth == 0)
            return i;
    }

    return text.size();
}

/** The literals that a source gives to juce::translate, including both of a conditional expression. Adjacent
    literals count as one, as for the compiler. */
[[nodiscard]] juce::StringArray collectLiterals (const juce::String& source)
{
    static const std::regex call ("(?:\\btranslate|\\bTRANS) *\\(");
    static const std::regex run ("\"(?:[^\"\\\\]|\\\\.)*\"(?:\\s*\"(?:[^\"\\\\]|\\\\.)*\")*");
    static const std::regex literal ("\"((?:[^\"\\\\]|\\\\.)*)\"");

    juce::StringArray literals;
    const auto text = source.toStdString();
    const std::sregex_iterator end;

    for (std::sregex_iterator match (text.begin(), text.end(), call); match != end; ++match)
    {
        const auto open = size_t (match->position()) + size_t (match->length()) - 1;
        const auto argument = text.substr (open, findClosingParenthesis (text, open) - open);

        for (std::sregex_iterator each (argument.begin(), argument.end(), run); each != end; ++each)
        {
            const auto adjacent = each->str();
            juce::String joined;

            for (std::sregex_iterator part (adjacent.begin(), adjacent.end(), literal); part != end; ++part)
                joined += juce::String::fromUTF8 (part->str (1).c_str());

            literals.add (joined);
        }
    }

    return literals;
}
} // namespace

TEST (TranslationTexts, AreCollectedFromTheSourcesAsTheCompilerReadsThem)
{
    EXPECT_EQ (collectLiterals ("a (juce::translate (\"One\")); b (TRANS (\"Two \"\n    \"halves\"));\n"
                                "translate (text); translate(\"Thr\\\"ee\"); mistranslate (\"no\");")
                   .joinIntoString ("|"),
               "One|Two halves|Thr\\\"ee");
    EXPECT_EQ (collectLiterals ("juce::translate (isOn (x) ? \"Of) f\" : \"On\") + \"...\";").joinIntoString ("|"),
               "Of) f|On");
}

TEST (TranslationTexts, HoldEveryLiteralThatTheSourcesTranslate)
{
    const auto frameworkKeys = toSet (TranslationFile ("framework", "en").getKeys());
    const auto productKeys = toSet (TranslationFile ("product", "en").getKeys());
    int numSources = 0;

    for (const auto* const folder : { "plugin_core", "orlo" })
    {
        const auto sources =
            getSourceFolder().getChildFile (folder).findChildFiles (juce::File::findFiles, true, "*.h;*.cpp;*.mm");
        numSources += sources.size();

        for (const auto& source : sources)
            for (const auto& literal : collectLiterals (source.loadFileAsString()))
                EXPECT_TRUE (frameworkKeys.contains (literal) || productKeys.contains (literal))
                    << source.getFileName() << ": \"" << literal << "\" is in no English translation text";
    }

    EXPECT_GT (numSources, 50);
}

} // namespace mk::orlo::test
