// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SoundCardOutput.h"

#if JUCE_LINUX
    #include <alsa/asoundlib.h>
#endif

namespace mk::orlo::host
{
namespace
{
#if JUCE_LINUX
void ignoreError (const char*, int, const char*, int, const char*, ...) {}
#endif

[[nodiscard]] std::unique_ptr<juce::AudioDeviceManager> makeSystemDevices()
{
#if JUCE_LINUX
    // Without a sound card, or while another program uses it, ALSA prints errors that do not concern the user.
    snd_lib_error_set_handler (ignoreError);
#endif

    return std::make_unique<juce::AudioDeviceManager>();
}
} // namespace

SoundCardOutput::SoundCardOutput (PluginPlayer& playerToDrive) : SoundCardOutput (playerToDrive, makeSystemDevices()) {}

SoundCardOutput::SoundCardOutput (PluginPlayer& playerToDrive, std::unique_ptr<juce::AudioDeviceManager> devicesToUse)
    : player (playerToDrive), devices (std::move (devicesToUse))
{
    juce::AudioDeviceManager::AudioDeviceSetup wanted;
    wanted.sampleRate = player.getTrackRate();
    devices->initialise (0, 2, nullptr, true, {}, &wanted);

    // Some cards refuse every rate but their own, so the second attempt leaves the rate to the card.
    if (devices->getCurrentAudioDevice() == nullptr)
        devices->initialiseWithDefaultDevices (0, 2);
}

SoundCardOutput::~SoundCardOutput()
{
    devices->removeAudioCallback (this);
    devices->closeAudioDevice();
}

juce::String SoundCardOutput::getDeviceName() const
{
    const auto* const device = devices->getCurrentAudioDevice();
    return device != nullptr ? device->getName() : juce::String();
}

void SoundCardOutput::start() { devices->addAudioCallback (this); }

void SoundCardOutput::audioDeviceAboutToStart (juce::AudioIODevice* device)
{
    player.prepare (device->getCurrentSampleRate(), device->getCurrentBufferSizeSamples());
}

void SoundCardOutput::audioDeviceStopped() { player.release(); }

void SoundCardOutput::audioDeviceIOCallbackWithContext (const float* const*,
                                                        int,
                                                        float* const* outputs,
                                                        int numOutputs,
                                                        int numSamples,
                                                        const juce::AudioIODeviceCallbackContext&)
{
    player.process (outputs, numOutputs, numSamples);
}

} // namespace mk::orlo::host
