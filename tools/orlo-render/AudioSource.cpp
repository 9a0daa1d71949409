// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AudioSource.h"

#include "OggTail.h"
#include "RenderError.h"

#include <algorithm>

namespace mk::orlo::render
{
namespace
{
// The readers of uncompressed files use a buffer of 5760 bytes, which must have room for at least one sample
// of every channel.
constexpr unsigned mostChannels = 256;

constexpr double highestSampleRate = 1.0e6;

// Samples that are decoded at a time, so that the memory for the channels does not depend on the length of a read.
constexpr int blockSize = 8192;

[[nodiscard]] bool isUncompressed (const juce::AudioFormatReader& reader)
{
    return reader.getFormatName() == juce::WavAudioFormat().getFormatName()
           || reader.getFormatName() == juce::AiffAudioFormat().getFormatName();
}

[[nodiscard]] bool isOgg (const juce::AudioFormatReader& reader)
{
    return reader.getFormatName() == juce::OggVorbisAudioFormat().getFormatName();
}
} // namespace

AudioSource::AudioSource (const juce::File& file, SourceChoice sourceChoice)
    : name (file.getFileName()), choice (sourceChoice)
{
    if (file.isDirectory())
        fail ("is a folder");

    if (! file.exists())
        fail ("does not exist");

    auto input = std::make_unique<juce::FileInputStream> (file);

    if (input->failedToOpen())
        fail ("cannot be opened: " + input->getStatus().getErrorMessage());

    if (input->getTotalLength() == 0)
        fail ("is empty");

    auto watched = std::make_unique<WatchedInputStream> (std::move (input));
    stream = watched.get();

    juce::AudioFormatManager formats;
    formats.registerBasicFormats();
    reader.reset (formats.createReaderFor (std::move (watched)));

    if (reader == nullptr)
        fail ("is not audio that can be read (WAV, AIFF, FLAC or Ogg Vorbis)");

    checkFormat();
    checkChannels();
    checkEnd();
    stream->forget(); // only reads of audio count, not those of headers or of the end
}

AudioSource::~AudioSource() = default;

void AudioSource::fail (const juce::String& what) const { throw RenderError ("'" + name + "' " + what); }

void AudioSource::checkFormat() const
{
    const auto bits = reader->bitsPerSample;

    if (reader->numChannels < 1 || reader->numChannels > mostChannels)
        fail ("has " + juce::String (reader->numChannels) + " channels; 1 to " + juce::String (mostChannels)
              + " can be read");

    if (! (reader->sampleRate > 0.0 && reader->sampleRate <= highestSampleRate))
        fail ("has a sample rate of " + juce::String (reader->sampleRate) + " Hz; up to "
              + juce::String (highestSampleRate) + " Hz can be read");

    if (isUncompressed (*reader) && bits != 8 && bits != 16 && bits != 24 && bits != 32)
        fail ("has samples of " + juce::String (bits) + " bits; 8, 16, 24 or 32 can be read");

    if (reader->lengthInSamples < 1)
        fail ("holds no audio");
}

void AudioSource::checkChannels() const
{
    const auto numWanted = choice.channel >= 0 ? choice.channel + 1 : choice.source == Source::mean ? 1 : 2;

    if (getNumChannels() < numWanted)
        throw RenderError ("--source needs " + juce::String (numWanted) + " channels; '" + name + "' has "
                               + juce::String (getNumChannels()),
                           RenderError::usage);
}

void AudioSource::checkEnd()
{
    if (isOgg (*reader))
    {
        if (! endsWithLastPage (*stream))
            fail ("is truncated");

        return;
    }

    if (! isUncompressed (*reader))
        return; // a truncated file is found while it is read

    stream->forget();
    channels.setSize (int (reader->numChannels), 1);
    reader->read (channels.getArrayOfWritePointers(), channels.getNumChannels(), reader->lengthInSamples - 1, 1);

    if (stream->wasReadShort())
        fail ("is truncated");
}

//==============================================================================
void AudioSource::read (std::int64_t position, std::span<float> destination)
{
    const auto count = juce::int64 (destination.size());
    const auto silenceBefore = std::clamp<juce::int64> (-position, 0, count);
    const auto end = std::clamp<juce::int64> (getLength() - position, silenceBefore, count);

    std::fill_n (destination.data(), silenceBefore, 0.0f);

    if (end > silenceBefore)
    {
        skipTo (position + silenceBefore);

        for (auto done = silenceBefore; done < end;)
        {
            const auto block = std::min<juce::int64> (blockSize, end - done);
            readMono (position + done, destination.data() + done, int (block));
            done += block;
        }
    }

    std::fill (destination.begin() + end, destination.end(), 0.0f);
}

void AudioSource::skipTo (juce::int64 position)
{
    // A seek in FLAC may read past the end of an intact file while it searches, which looks like a truncated
    // file. So instead of a seek, the audio before the position is decoded and thrown away.
    if (! isUncompressed (*reader) && ! isOgg (*reader))
    {
        std::vector<float> scrap (blockSize);

        while (nextPosition < position)
            readMono (nextPosition, scrap.data(), int (std::min<juce::int64> (blockSize, position - nextPosition)));
    }
}

void AudioSource::readMono (juce::int64 position, float* destination, int count)
{
    const auto numChannels = int (reader->numChannels);
    channels.setSize (numChannels, count, false, false, true);

    if (! reader->read (channels.getArrayOfWritePointers(), numChannels, position, count))
        fail ("cannot be read");

    if (isUncompressed (*reader) ? stream->wasReadShort() : ! isOgg (*reader) && stream->wasFoundExhausted())
        fail ("is truncated");

    mixChannels (destination, count);
    nextPosition = position + count;
}

void AudioSource::mixChannels (float* destination, int count) const
{
    using Vector = juce::FloatVectorOperations;
    const auto channel = [this] (int index) { return channels.getReadPointer (index); };

    if (choice.channel >= 0)
    {
        Vector::copy (destination, channel (choice.channel), count);
        return;
    }

    switch (choice.source)
    {
        case Source::left: Vector::copy (destination, channel (0), count); break;
        case Source::right: Vector::copy (destination, channel (1), count); break;
        case Source::mid: Vector::add (destination, channel (0), channel (1), count); break;
        case Source::side: Vector::subtract (destination, channel (0), channel (1), count); break;
        case Source::mean:
        case Source::loudest: mixMean (destination, count); break;
    }

    if (choice.source == Source::mid || choice.source == Source::side)
        Vector::multiply (destination, 0.5f, count);
}

void AudioSource::mixMean (float* destination, int count) const
{
    using Vector = juce::FloatVectorOperations;
    const auto numChannels = channels.getNumChannels();

    Vector::copy (destination, channels.getReadPointer (0), count);

    for (int channel = 1; channel < numChannels; ++channel)
        Vector::add (destination, channels.getReadPointer (channel), count);

    if (numChannels > 1)
        Vector::multiply (destination, 1.0f / float (numChannels), count);
}

} // namespace mk::orlo::render
