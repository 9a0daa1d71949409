// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{

/** [message thread] Records what was set since the last time into the undo manager's present transaction. The
    state does so by itself, but up to half a second later, when the next gesture may have begun another one. */
inline void flushIntoTransaction (juce::AudioProcessorValueTreeState& state)
{
    if (state.undoManager != nullptr)
        static_cast<void> (state.copyState());
}

} // namespace mk::pluginCore
