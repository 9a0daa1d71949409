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

/** [message thread] The same after the present message, unless the control has gone by then. For callbacks of a
    button, where a click of the user and a value of the host look the same: with the latter the parameter holds a
    lock, under which the state must not be locked. */
inline void flushSoon (juce::Component& control, juce::AudioProcessorValueTreeState& state)
{
    juce::MessageManager::callAsync (
        [safeControl = juce::Component::SafePointer (&control), &state]
        {
            if (safeControl != nullptr)
                flushIntoTransaction (state);
        });
}

} // namespace mk::pluginCore
