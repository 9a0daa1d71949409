// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Picks the language of all texts and installs it for juce::translate(), for the whole process. Each
    instance of the plug-in does so when it is made, before it has any component, with equal results. A text
    without a translation stays the English one of the code.

    The framework's texts are found without regard to case where the exact key is missing; the product's
    are not. */
class LocalisedStringsManager
{
public:
    LocalisedStringsManager() = default;
    virtual ~LocalisedStringsManager() = default;

    /** Takes the first language that the user prefers; English if we do not speak it. Any thread. */
    void chooseLanguage();

    /** Installs the texts for "en", "fr", "es", "pt" or "it". Any other code installs English and gives
        false. Any thread; juce::translate() may be in use on others. */
    bool setLanguage (const juce::String& code);

    /** Adds the product's texts to those installed, in the place of equal keys. False, with nothing
        changed, for a code that the product has no texts for. Called by setLanguage(). */
    virtual bool addProductStrings (const juce::String& code);

    /** The code of the texts installed last, one of the five; empty before. */
    [[nodiscard]] const juce::String& getLanguageCode() const noexcept { return languageCode; }

protected:
    /** Adds the pairs of a translation text to those installed. Nothing happens if there are none. */
    static void addToInstalledStrings (const juce::String& translationText);

private:
    juce::String languageCode;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LocalisedStringsManager)
};

} // namespace mk::pluginCore
