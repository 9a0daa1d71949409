// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{

/** Attributes of a float parameter whose text has n decimals (fewer if the host wants a shorter text).
    With n = 0 the value is rounded to the nearest integer, ties to even. Text is parsed as a number. */
[[nodiscard]] juce::AudioParameterFloatAttributes getFloatParameterAttributesWithNDecimals (int n);

} // namespace mk::pluginCore
