// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "HostOptions.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::host
{

/** [message thread] Writes the state that the plug-in gives a host for its session. If the file cannot be
    written, throws HostError and leaves the file unchanged. */
void saveState (juce::AudioPluginInstance& plugin, const juce::File& file);

/** [message thread] Loads a file that saveState() wrote into the plug-in. If the file cannot be read or is
    something else, throws HostError and leaves the plug-in unchanged. */
void loadState (juce::AudioPluginInstance& plugin, const juce::File& file);

/** [message thread] Loads a preset file of the plug-in into it, as a session that consists of the preset's values. If
    the file cannot be read or is no preset, throws HostError and leaves the plug-in unchanged. The plug-in ignores
    presets of other products. */
void loadPreset (juce::AudioPluginInstance& plugin, const juce::File& file);

/** Replaces a file's content. If that fails, throws HostError and leaves the file unchanged. */
void writeWholeFile (const juce::File& file, const void* data, size_t size);

/** [message thread] Lets the plug-in explore a part of the sound of its frozen picture, by its session's state. Throws
    HostError if the state has another form. */
void explore (juce::AudioPluginInstance& plugin, const ExploredRange& range);

} // namespace mk::orlo::host
