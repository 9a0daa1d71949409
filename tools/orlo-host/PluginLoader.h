// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_processors/juce_audio_processors.h>

#include <memory>

namespace mk::orlo::host
{

/** [message thread] Loads a VST3 bundle and makes an instance of its first effect. Throws HostError if it is
    not there or cannot be loaded. */
[[nodiscard]] std::unique_ptr<juce::AudioPluginInstance>
    loadPlugin (const juce::File& bundle, double sampleRate, int blockSize);

/** The bundle for a program in a folder: at a path relative to it if it is there, else where installations put it; the
    former if it is nowhere. */
[[nodiscard]] juce::File findPlugin (const juce::File& programFolder, const juce::String& pathInBuild);

} // namespace mk::orlo::host
