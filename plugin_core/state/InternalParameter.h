// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

namespace mk::pluginCore
{

/** The identifier of the hidden parameter. */
inline constexpr auto internalParameterId = "internal";

/** The hidden parameter that is changed to tell the host that state outside the other parameters has changed.
    In Reaper's VST3 it is automatable, since Reaper saves no change of a parameter that is not. */
[[nodiscard]] std::unique_ptr<juce::AudioParameterFloat> createInternalParam (int versionHint);

} // namespace mk::pluginCore
