// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "WatchedInputStream.h"
#include "orlo/stills/SampleSource.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <span>

namespace mk::orlo::render
{

/** The audio of a file as one endless mono signal: the mean of its channels, with silence before its start
    and after its end. One thread at a time. */
class AudioSource final : public SampleSource
{
public:
    /** Opens the file. Throws RenderError if it does not exist, is not audio that can be read, is empty, or
        holds less than its header promises, as far as its start and its end show that. */
    explicit AudioSource (const juce::File& file);
    ~AudioSource() override;

    /** Hertz. */
    [[nodiscard]] double getSampleRate() const noexcept { return reader->sampleRate; }

    /** Samples in each channel of the file. */
    [[nodiscard]] juce::int64 getLength() const noexcept { return reader->lengthInSamples; }

    /** Fills the destination with the samples from a position on. The position may be negative, but not below
        the end of the previous read. Allocates a fixed amount.
        Throws RenderError if the file holds less than its header promises. */
    void read (std::int64_t position, std::span<float> destination) override;

private:
    void checkFormat() const;
    void checkEnd();
    void skipTo (juce::int64 position);
    void readMono (juce::int64 position, float* destination, int count);
    void mixChannels (float* destination, int count) const;
    [[noreturn]] void fail (const juce::String& what) const;

    const juce::String name;
    WatchedInputStream* stream = nullptr; // the reader owns it
    std::unique_ptr<juce::AudioFormatReader> reader;
    juce::int64 nextPosition = 0;
    juce::AudioBuffer<float> channels;
};

} // namespace mk::orlo::render
