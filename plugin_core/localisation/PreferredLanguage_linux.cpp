// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PreferredLanguage.h"

#include <langinfo.h>
#include <locale.h>

namespace mk::pluginCore
{

juce::String getPreferredLanguage()
{
    // What juce::SystemStats::getDisplayLanguage() reads, but from a locale of our own: that function sets
    // the process's locale to the user's and leaves it so, and a host that writes "0.5" would write "0,5"
    // from then on.
    const auto locale = newlocale (LC_ALL_MASK, "", locale_t {});

    if (locale == locale_t {})
        return {};

    juce::String language (juce::CharPointer_UTF8 (nl_langinfo_l (_NL_ADDRESS_LANG_AB, locale)));
    const juce::String region (juce::CharPointer_UTF8 (nl_langinfo_l (_NL_ADDRESS_COUNTRY_AB2, locale)));
    freelocale (locale);

    if (region.isNotEmpty())
        language << "-" << region;

    return language;
}

} // namespace mk::pluginCore
