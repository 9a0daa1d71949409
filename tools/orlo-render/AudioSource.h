// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SourceChoice.h"
#include "WatchedInputStream.h"
#include "orlo/stills/SampleSource.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <span>

namespace mk::orlo::render
{

/** The audio of a file as one endless mono signal, by default the mean of its channels, with silence before its start
    and after its end. One thread at a time. */
class AudioSource final : public SampleSource
{
public:
    /** Opens the file. Throws RenderError if it does not exist, is not audio that can be read, is empty, or
        holds less than its header promises, as far as its start and its end show that, or if it has too few
        channels for the choice.

        @param choice  not Loudest, which is more than one signal */
    explicit AudioSource (const juce::File& file, SourceChoice choice = {});
    ~AudioSource() override;

    /** Hertz. */
    [[nodiscard]] double getSampleRate() const noexcept { return reader->sampleRate; }

    [[nodiscard]] int getNumChannels() const noexcept { return int (reader->numChannels); }

    /** Samples in each channel of the file. */
    [[nodiscard]] juce::int64 getLength() const noexcept { return reader->lengthInSamples; }

    /** Fills the destination with the samples from a position on. The position may be negative, but not below
        the end of the previous read. Allocates a fixed amount.
        Throws RenderError if the file holds less than its header promises. */
    void read (std::int64_t position, std::span<float> destination) override;

private:
    void checkFormat() const;
    void checkChannels() const;
    void checkEnd();
    void skipTo (juce::int64 position);
    void readMono (juce::int64 position, float* destination, int count);
    void mixChannels (float* destination, int count) const;
    void mixMean (float* destination, int count) const;
    [[noreturn]] void fail (const juce::String& what) const;

    const juce::String name;
    const SourceChoice choice;
    WatchedInputStream* stream = nullptr; // the reader owns it
    std::unique_ptr<juce::AudioFormatReader> reader;
    juce::int64 nextPosition = 0;
    juce::AudioBuffer<float> channels;
};

} // namespace mk::orlo::render
