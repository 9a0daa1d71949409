// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "plugin_core/processor/PluginProcessor.h"

namespace mk::orlo
{

/** The parameter with the id, which must exist. Any thread. */
[[nodiscard]] inline juce::RangedAudioParameter& findParameter (pluginCore::PluginProcessor& processor, const char* id)
{
    return *processor.getParameterState().getParameter (id);
}

/** A parameter's value in its own range. While listeners are being called, it may be newer than the copy that
    the parameter state keeps. Any thread. */
[[nodiscard]] inline float getCurrentValue (const juce::RangedAudioParameter& parameter)
{
    return parameter.convertFrom0to1 (parameter.getValue());
}

/** Whether a switch is on. Any thread. */
[[nodiscard]] inline bool isOn (const juce::RangedAudioParameter& parameter) { return parameter.getValue() >= 0.5f; }

} // namespace mk::orlo
