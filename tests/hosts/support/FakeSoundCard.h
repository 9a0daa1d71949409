// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_audio_devices/juce_audio_devices.h>

#include <memory>

namespace mk::orlo::test
{

/** The state of a card that a test reads, even after the device has been deleted. */
struct FakeCardState
{
    bool present = true;
    bool open = false;
    double onlyRate = 44100.0;
    int blockSize = 128;
    juce::AudioIODeviceCallback* callback = nullptr;

    /** What the card plays next, while it plays. */
    [[nodiscard]] juce::AudioBuffer<float> play (int numSamples) const
    {
        juce::AudioBuffer<float> output (2, numSamples);
        output.clear();

        if (callback != nullptr)
            callback->audioDeviceIOCallbackWithContext (
                nullptr, 0, output.getArrayOfWritePointers(), 2, numSamples, {});

        return output;
    }
};

/** A stereo card that supports one sample rate and is clocked by the test. */
class FakeSoundCard final : public juce::AudioIODevice
{
public:
    explicit FakeSoundCard (FakeCardState& stateToShow) : juce::AudioIODevice ("Fake card", "Fake"), state (stateToShow)
    {
    }

    ~FakeSoundCard() override { close(); }

    juce::StringArray getOutputChannelNames() override { return { "left", "right" }; }
    juce::StringArray getInputChannelNames() override { return {}; }
    juce::Array<double> getAvailableSampleRates() override { return { state.onlyRate }; }
    juce::Array<int> getAvailableBufferSizes() override { return { state.blockSize }; }
    int getDefaultBufferSize() override { return state.blockSize; }

    juce::String open (const juce::BigInteger&, const juce::BigInteger&, double, int) override
    {
        state.open = true;
        return {};
    }

    void close() override
    {
        stop();
        state.open = false;
    }

    bool isOpen() override { return state.open; }

    void start (juce::AudioIODeviceCallback* newCallback) override
    {
        state.callback = newCallback;

        if (newCallback != nullptr)
            newCallback->audioDeviceAboutToStart (this);
    }

    void stop() override
    {
        if (auto* const last = std::exchange (state.callback, nullptr))
            last->audioDeviceStopped();
    }

    bool isPlaying() override { return state.callback != nullptr; }
    juce::String getLastError() override { return {}; }
    int getCurrentBufferSizeSamples() override { return state.blockSize; }
    double getCurrentSampleRate() override { return state.onlyRate; }
    int getCurrentBitDepth() override { return 24; }
    juce::BigInteger getActiveOutputChannels() const override { return 3; }
    juce::BigInteger getActiveInputChannels() const override { return 0; }
    int getOutputLatencyInSamples() override { return 0; }
    int getInputLatencyInSamples() override { return 0; }

private:
    FakeCardState& state;
};

/** The devices of a machine that has the card or, if it is not present, none. */
class FakeDeviceManager final : public juce::AudioDeviceManager
{
public:
    explicit FakeDeviceManager (FakeCardState& stateToShow) : state (stateToShow) {}

    void createAudioDeviceTypes (juce::OwnedArray<juce::AudioIODeviceType>& types) override
    {
        types.add (std::make_unique<Type> (state));
    }

private:
    struct Type final : juce::AudioIODeviceType
    {
        explicit Type (FakeCardState& stateToShow) : juce::AudioIODeviceType ("Fake"), state (stateToShow) {}

        void scanForDevices() override {}
        juce::StringArray getDeviceNames (bool wantInputs) const override
        {
            return state.present && ! wantInputs ? juce::StringArray { "Fake card" } : juce::StringArray();
        }

        int getDefaultDeviceIndex (bool) const override { return 0; }
        int getIndexOfDevice (juce::AudioIODevice* device, bool) const override { return device != nullptr ? 0 : -1; }
        bool hasSeparateInputsAndOutputs() const override { return true; }

        juce::AudioIODevice* createDevice (const juce::String& outputName, const juce::String&) override
        {
            return state.present && outputName.isNotEmpty() ? std::make_unique<FakeSoundCard> (state).release()
                                                            : nullptr;
        }

        FakeCardState& state;
    };

    FakeCardState& state;
};

} // namespace mk::orlo::test
