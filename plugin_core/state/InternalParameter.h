// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

namespace mk::pluginCore
{

/** The identifier of the hidden parameter. */
inline constexpr auto internalParameterId = "internal";

/** The hidden parameter that is nudged so that the host sees a change of state that no other parameter holds.
    Reaper saves nothing for a parameter that cannot be automated. */
[[nodiscard]] std::unique_ptr<juce::AudioParameterFloat> createInternalParam (int versionHint);

} // namespace mk::pluginCore
