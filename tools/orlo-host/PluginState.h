// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::host
{

/** [message thread] Writes what the plug-in saves into a session. Throws HostError if the file cannot be
    written; then it is as it was. */
void saveState (juce::AudioPluginInstance& plugin, const juce::File& file);

/** [message thread] Gives the plug-in the bytes of saveState(). Throws HostError, with the plug-in
    untouched, if they are not there or are something else. */
void loadState (juce::AudioPluginInstance& plugin, const juce::File& file);

/** Replaces a file's bytes, all or none. Throws HostError. */
void writeWholeFile (const juce::File& file, const void* data, size_t size);

} // namespace mk::orlo::host
