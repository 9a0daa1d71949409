// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PreferredLanguage.h"

namespace mk::pluginCore
{

juce::String getPreferredLanguage()
{
    const auto read = [] (const char* name) { return juce::SystemStats::getEnvironmentVariable (name, {}); };
    return preferredLanguageOf ({ read ("LANGUAGE"), read ("LC_ALL"), read ("LC_MESSAGES"), read ("LANG") });
}

} // namespace mk::pluginCore
