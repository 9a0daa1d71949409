// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PreferredLanguage.h"

namespace mk::pluginCore
{

juce::String getPreferredLanguage() { return juce::SystemStats::getDisplayLanguage(); }

} // namespace mk::pluginCore
