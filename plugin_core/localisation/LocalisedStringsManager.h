// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::pluginCore
{

/** Chooses the language of all texts and installs it for juce::translate(), for the whole process. Each
    instance of the plug-in does so when it is constructed, before any component, with the same result. A text
    without a translation stays in the English of the source code.

    If the exact key is missing, the framework's texts are looked up ignoring case; the product's
    texts are not. */
class LocalisedStringsManager
{
public:
    LocalisedStringsManager() = default;
    virtual ~LocalisedStringsManager() = default;

    /** Installs the user's first preferred language; English if it is not supported. Any thread. */
    void chooseLanguage();

    /** Installs the texts for "en", "fr", "es", "pt" or "it". Any other code installs English and returns
        false. Any thread; other threads may call juce::translate() meanwhile. */
    bool setLanguage (const juce::String& code);

    /** Adds the product's texts to the installed ones, replacing equal keys. Returns false and changes
        nothing if the product has no texts for the code. Called by setLanguage(). */
    virtual bool addProductStrings (const juce::String& code);

    /** The code of the last installed texts, one of the five; empty before the first installation. */
    [[nodiscard]] const juce::String& getLanguageCode() const noexcept { return languageCode; }

protected:
    /** Adds the pairs of a translation text to the installed texts. Does nothing if no texts are installed. */
    static void addToInstalledStrings (const juce::String& translationText);

private:
    juce::String languageCode;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (LocalisedStringsManager)
};

} // namespace mk::pluginCore
