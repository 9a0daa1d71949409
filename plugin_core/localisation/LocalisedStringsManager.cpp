// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LocalisedStringsManager.h"

#include "FrameworkTranslations.h"
#include "PreferredLanguage.h"

#include <memory>

namespace mk::pluginCore
{
namespace
{
/** Serialises installations: two instances created at once would otherwise mix their texts. */
[[nodiscard]] juce::CriticalSection& getInstallationLock()
{
    static juce::CriticalSection lock;
    return lock;
}

/** The framework's text in a language; empty if there is none. */
[[nodiscard]] juce::String getText (const juce::String& code)
{
    using namespace FrameworkTranslations;

    if (code == "en")
        return juce::String::fromUTF8 (framework_en_txt, framework_en_txtSize);

    if (code == "fr")
        return juce::String::fromUTF8 (framework_fr_txt, framework_fr_txtSize);

    if (code == "es")
        return juce::String::fromUTF8 (framework_es_txt, framework_es_txtSize);

    if (code == "it")
        return juce::String::fromUTF8 (framework_it_txt, framework_it_txtSize);

    if (code == "pt")
        return juce::String::fromUTF8 (framework_pt_txt, framework_pt_txtSize);

    return {};
}
} // namespace

void LocalisedStringsManager::chooseLanguage() { setLanguage (languageCodeFor (getPreferredLanguage())); }

bool LocalisedStringsManager::setLanguage (const juce::String& code)
{
    constexpr auto ignoreCase = true;
    const juce::ScopedLock scopedLock (getInstallationLock());

    auto text = getText (code);
    const auto isKnown = text.isNotEmpty();
    languageCode = isKnown ? code : "en";

    if (! isKnown)
        text = getText (languageCode);

    auto main = std::make_unique<juce::LocalisedStrings> (text, ! ignoreCase);
    auto fallback = std::make_unique<juce::LocalisedStrings> (text, ignoreCase);

    // Both calls take ownership of their argument.
    main->setFallback (fallback.release());
    juce::LocalisedStrings::setCurrentMappings (main.release());

    addProductStrings (languageCode);
    return isKnown;
}

bool LocalisedStringsManager::addProductStrings (const juce::String&) { return false; }

void LocalisedStringsManager::addToInstalledStrings (const juce::String& translationText)
{
    const auto* const installed = juce::LocalisedStrings::getCurrentMappings();

    if (installed == nullptr)
        return;

    // Another thread may be reading the installed texts, so a changed copy replaces them.
    auto merged = std::make_unique<juce::LocalisedStrings> (*installed);
    merged->addStrings (juce::LocalisedStrings (translationText, false));
    juce::LocalisedStrings::setCurrentMappings (merged.release());
}

} // namespace mk::pluginCore
