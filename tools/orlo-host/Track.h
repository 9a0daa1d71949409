// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_formats/juce_audio_formats.h>

#include <memory>

namespace mk::orlo::host
{

/** A piece of audio that plays in a loop. */
struct Track
{
    juce::String name;
    double sampleRate = 0.0; /**< Hertz. */
    juce::int64 length = 0;  /**< Samples. */
    bool isFromDisk = false; /**< Reading it may block, so it must be read ahead. */
    std::unique_ptr<juce::PositionableAudioSource> source;
};

/** The built-in demo signal. */
[[nodiscard]] Track makeDemoTrack();

/** Opens a file of any format that JUCE reads. Throws HostError if it is not there, is no audio, or is empty. */
[[nodiscard]] Track openTrack (const juce::File& file);

} // namespace mk::orlo::host
