// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Track.h"

#include "DemoSignal.h"
#include "HostError.h"

namespace mk::orlo::host
{
namespace
{
constexpr double demoSampleRate = 48000.0;
}

Track makeDemoTrack()
{
    auto signal = makeDemoSignal (demoSampleRate);
    const auto length = signal.getNumSamples();

    return {
        "the demo signal", demoSampleRate, length, false, std::make_unique<juce::MemoryAudioSource> (signal, true, true)
    };
}

Track openTrack (const juce::File& file)
{
    const auto& path = file.getFullPathName();

    if (! file.existsAsFile())
        throw HostError ("there is no file " + path);

    juce::AudioFormatManager formats;
    formats.registerBasicFormats();
    std::unique_ptr<juce::AudioFormatReader> reader (formats.createReaderFor (file));

    if (reader == nullptr || reader->sampleRate <= 0.0 || reader->numChannels < 1)
        throw HostError (path + " is no audio that can be read");

    if (reader->lengthInSamples < 1)
        throw HostError (path + " holds no samples");

    const auto rate = reader->sampleRate;
    const auto length = reader->lengthInSamples;

    // The source deletes the reader.
    auto source = std::make_unique<juce::AudioFormatReaderSource> (reader.release(), true);
    source->setLooping (true);

    return { file.getFileName(), rate, length, true, std::move (source) };
}

} // namespace mk::orlo::host
