// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LoopPlayHead.h"
#include "Track.h"

#include <juce_audio_devices/juce_audio_devices.h>
#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo::host
{

/** Plays the track through the plug-in, block by block, as fast as the caller asks for blocks. */
class PluginPlayer
{
public:
    /** The plug-in must outlive the player. */
    PluginPlayer (juce::AudioPluginInstance& plugin, Track track);
    ~PluginPlayer();

    [[nodiscard]] const juce::String& getTrackName() const noexcept { return track.name; }

    /** Hertz. At this rate the track is not resampled. */
    [[nodiscard]] double getTrackRate() const noexcept { return track.sampleRate; }

    /** [while no audio runs] Gets the plug-in and the track ready to play from the start. */
    void prepare (double sampleRate, int maxBlockSize);

    /** [audio thread, after prepare()] Writes the next samples for a sound card with any number of channels. The
        plug-in gets them in blocks of up to maxBlockSize. */
    void process (float* const* outputs, int numOutputs, int numSamples);

    /** [while no audio runs] Undoes prepare(). A second call does nothing. */
    void release();

private:
    void processBlock (int numSamples);

    juce::AudioPluginInstance& plugin;
    Track track;
    juce::TimeSliceThread readAheadThread { "read ahead" };
    juce::AudioTransportSource transport;
    LoopPlayHead playHead;
    juce::AudioBuffer<float> buffer;
    juce::MidiBuffer midi;
    bool prepared = false;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (PluginPlayer)
};

} // namespace mk::orlo::host
