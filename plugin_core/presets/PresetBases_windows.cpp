// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PresetBases.h"

namespace mk::pluginCore
{

juce::File getSystemPresetBase (const juce::String&)
{
    return juce::File::getSpecialLocation (juce::File::commonApplicationDataDirectory);
}

juce::File getUserPresetBase() { return juce::File::getSpecialLocation (juce::File::userApplicationDataDirectory); }

} // namespace mk::pluginCore
