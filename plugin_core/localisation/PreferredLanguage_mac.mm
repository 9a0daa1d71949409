// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PreferredLanguage.h"

#include <CoreFoundation/CoreFoundation.h>

namespace mk::pluginCore
{

juce::String getPreferredLanguage()
{
    const auto languages = CFLocaleCopyPreferredLanguages();

    if (languages == nullptr)
        return {};

    juce::String first;

    if (CFArrayGetCount (languages) > 0)
        first = juce::String::fromCFString (static_cast<CFStringRef> (CFArrayGetValueAtIndex (languages, 0)));

    CFRelease (languages);
    return first;
}

} // namespace mk::pluginCore
