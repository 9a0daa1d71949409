// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LocalisedStringsManager.h"

#include "ProductTranslations.h"

namespace mk::orlo
{
namespace
{
/** The product's text in a language; empty if there is none. */
[[nodiscard]] juce::String getText (const juce::String& code)
{
    using namespace ProductTranslations;

    if (code == "en")
        return juce::String::fromUTF8 (product_en_txt, product_en_txtSize);

    if (code == "fr")
        return juce::String::fromUTF8 (product_fr_txt, product_fr_txtSize);

    if (code == "es")
        return juce::String::fromUTF8 (product_es_txt, product_es_txtSize);

    if (code == "pt")
        return juce::String::fromUTF8 (product_pt_txt, product_pt_txtSize);

    if (code == "it")
        return juce::String::fromUTF8 (product_it_txt, product_it_txtSize);

    return {};
}
} // namespace

bool LocalisedStringsManager::addProductStrings (const juce::String& code)
{
    const auto text = getText (code);

    if (text.isEmpty())
        return false;

    addToInstalledStrings (text);
    return true;
}

} // namespace mk::orlo
