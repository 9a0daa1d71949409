// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SoundFile.h"

#include <juce_audio_formats/juce_audio_formats.h>

#include <algorithm>

namespace mk::orlo
{
namespace
{
constexpr int blockSize = 1 << 14;

/** Passes everything on to a stream that it does not own, since writers delete theirs. */
class BorrowedStream final : public juce::OutputStream
{
public:
    explicit BorrowedStream (juce::OutputStream& lender) : stream (lender) {}

    void flush() override { stream.flush(); }

    // Writers take a stream that cannot go back to their header for an error of the program. After a failed write it does
    // not matter where the rest would go.
    bool setPosition (juce::int64 position) override { return stream.setPosition (position) || hasFailed; }
    juce::int64 getPosition() override { return stream.getPosition(); }

    bool write (const void* data, size_t size) override
    {
        hasFailed = ! stream.write (data, size) || hasFailed;
        return ! hasFailed;
    }

private:
    juce::OutputStream& stream;
    bool hasFailed = false;
};

[[nodiscard]] std::unique_ptr<juce::AudioFormatWriter>
    makeWriter (const KeptSound& sound, SoundFormat format, juce::OutputStream& stream)
{
    const auto isWav = format == SoundFormat::wav;
    auto borrowed = std::make_unique<BorrowedStream> (stream);
    std::unique_ptr<juce::AudioFormat> codec;

    if (isWav)
        codec = std::make_unique<juce::WavAudioFormat>();
    else
        codec = std::make_unique<juce::FlacAudioFormat>();

    std::unique_ptr<juce::AudioFormatWriter> writer (codec->createWriterFor (
        borrowed.get(), sound.getSampleRate(), unsigned (sound.getNumChannels()), isWav ? 32 : 24, {}, 0));

    if (writer != nullptr)
        std::ignore = borrowed.release();

    return writer;
}
} // namespace

juce::Result writeSound (const KeptSound& sound,
                         std::int64_t start,
                         std::int64_t end,
                         SoundFormat format,
                         juce::OutputStream& stream,
                         const std::function<bool (double done)>& progress)
{
    const auto first = std::max (start, sound.getStart());
    const auto last = std::min (end, sound.getEnd());

    if (first >= last)
        return juce::Result::fail ("there is no sound in this range");

    const auto writer = makeWriter (sound, format, stream);

    if (writer == nullptr)
        return juce::Result::fail ("the format does not have this sample rate");

    juce::AudioBuffer<float> block (sound.getNumChannels(), blockSize);

    for (auto position = first; position < last; position += blockSize)
    {
        const auto count = int (std::min<std::int64_t> (blockSize, last - position));

        for (int channel = 0; channel < sound.getNumChannels(); ++channel)
            if (! sound.read (channel, position, block.getWritePointer (channel), count))
                return juce::Result::fail ("the sound is not kept any more");

        if (! writer->writeFromAudioSampleBuffer (block, 0, count))
            return juce::Result::fail ("the file cannot be written");

        if (! progress (double (position + count - first) / double (last - first)))
            return juce::Result::fail ("cancelled");
    }

    return juce::Result::ok();
}

} // namespace mk::orlo
