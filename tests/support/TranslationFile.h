// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <utility>
#include <vector>

namespace mk::orlo::test
{

/** A translation text read strictly, where JUCE's own reader skips what it does not understand. */
struct TranslationFile
{
    /** Reads resources/translations/SET_CODE.txt. A line that is wrong fails the running test. */
    TranslationFile (const juce::String& set, const juce::String& code);

    [[nodiscard]] juce::StringArray getKeys() const;

    juce::String language, countries;

    /** Keys and values in the file's order, with their escapes unresolved. */
    std::vector<std::pair<juce::String, juce::String>> pairs;
};

/** The five languages. */
[[nodiscard]] const juce::StringArray& getLanguageCodes();

/** The two sets: what the framework's products share, and this product's own. */
[[nodiscard]] const juce::StringArray& getTranslationSets();

} // namespace mk::orlo::test
