// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TranslationFile.h"

#include "SourceTree.h"

#include <gtest/gtest.h>

#include <regex>

namespace mk::orlo::test
{

TranslationFile::TranslationFile (const juce::String& set, const juce::String& code)
{
    const auto file =
        getSourceFolder().getChildFile ("resources/translations").getChildFile (set + "_" + code + ".txt");
    juce::MemoryBlock bytes;

    EXPECT_TRUE (file.loadFileAsData (bytes)) << file.getFullPathName();
    EXPECT_TRUE (juce::CharPointer_UTF8::isValidString (bytes.begin(), int (bytes.getSize()))) << file.getFileName();
    EXPECT_FALSE (bytes.toString().containsChar ('\r')) << file.getFileName();

    static const std::regex pairLine ("\"((?:[^\"\\\\]|\\\\.)*)\" *= *\"((?:[^\"\\\\]|\\\\.)*)\"");
    static const std::regex headLine ("(language|countries): \\[(.*)\\]");

    for (const auto& line : juce::StringArray::fromLines (bytes.toString()))
    {
        std::smatch match;
        const auto text = line.toStdString();

        if (std::regex_match (text, match, pairLine))
            pairs.emplace_back (juce::String::fromUTF8 (match.str (1).c_str()),
                                juce::String::fromUTF8 (match.str (2).c_str()));
        else if (std::regex_match (text, match, headLine))
            (match.str (1) == "language" ? language : countries) = juce::String (match.str (2));
        else
            EXPECT_TRUE (line.isEmpty() || line.startsWith ("//")) << file.getFileName() << ": " << text;
    }
}

juce::StringArray TranslationFile::getKeys() const
{
    juce::StringArray keys;

    for (const auto& [key, value] : pairs)
        keys.add (key);

    return keys;
}

const juce::StringArray& getLanguageCodes()
{
    static const juce::StringArray codes { "en", "fr", "es", "pt", "it" };
    return codes;
}

const juce::StringArray& getTranslationSets()
{
    static const juce::StringArray sets { "framework", "product" };
    return sets;
}

} // namespace mk::orlo::test
