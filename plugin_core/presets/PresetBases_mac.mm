// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetBases.h"

namespace mk::pluginCore
{

juce::File getSystemPresetBase (const juce::String&) { return juce::File ("/Library/Application Support"); }

juce::File getUserPresetBase() { return juce::File ("~/Library/Application Support"); }

} // namespace mk::pluginCore
