// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HostOptions.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::host
{

/** [message thread] Finds a parameter by the plug-in's own id ("colourMap") or by its name as hosts show it
    ("Colour Map"). Null if there is none. */
[[nodiscard]] juce::AudioProcessorParameter* findParameter (const juce::AudioPluginInstance& plugin,
                                                            const juce::String& id);

/** [message thread] The normalised value of a text, as the parameter itself reads it. Parameters turn an
    unknown text or a number out of range into some legal value, which is not what the user asked for, so
    these throw HostError. */
[[nodiscard]] float valueForText (const juce::AudioProcessorParameter& parameter, const juce::String& text);

/** [message thread] Sets one parameter. Throws HostError if there is no such parameter or value. */
void setParameter (juce::AudioPluginInstance& plugin, const ParameterSetting& setting);

} // namespace mk::orlo::host
