// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PluginPlayer.h"

#include <memory>

namespace mk::orlo::host
{

/** Sends what the player plays to the sound card. [message thread] */
class SoundCardOutput final : private juce::AudioIODeviceCallback
{
public:
    /** Opens the machine's default device. The player must outlive the output. */
    explicit SoundCardOutput (PluginPlayer& player);

    /** Opens the default device of the given device manager. */
    SoundCardOutput (PluginPlayer& player, std::unique_ptr<juce::AudioDeviceManager> devices);

    /** Stops the device. */
    ~SoundCardOutput() override;

    /** The name of the open device; empty if none could be opened. */
    [[nodiscard]] juce::String getDeviceName() const;

    /** Prepares the player for the device and starts. Call it only if a device is open. */
    void start();

private:
    void audioDeviceAboutToStart (juce::AudioIODevice*) override;
    void audioDeviceStopped() override;
    void audioDeviceIOCallbackWithContext (const float* const* inputs,
                                           int numInputs,
                                           float* const* outputs,
                                           int numOutputs,
                                           int numSamples,
                                           const juce::AudioIODeviceCallbackContext&) override;

    PluginPlayer& player;
    const std::unique_ptr<juce::AudioDeviceManager> devices;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (SoundCardOutput)
};

} // namespace mk::orlo::host
