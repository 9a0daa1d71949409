// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{

/** [message thread] Records the changes since the last call in the undo manager's current transaction. The state
    does that by itself too, but up to half a second later, when another gesture may have opened the next one. */
inline void flushIntoTransaction (juce::AudioProcessorValueTreeState& state)
{
    if (state.undoManager != nullptr)
        static_cast<void> (state.copyState());
}

} // namespace mk::pluginCore
