// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/AudioSource.h"

#include "AudioFiles.h"
#include "FileFolder.h"
#include "tools/orlo-render/RenderError.h"

#include <gmock/gmock.h>

#include <array>
#include <numeric>

namespace mk::orlo::test
{
namespace
{
using namespace render;
using testing::HasSubstr;

constexpr double rate = 44100.0;

struct Format
{
    const char* extension;
    int bits;
    float tolerance; // largest difference between the mean that is read and the mean that was written
};

void PrintTo (const Format& format, std::ostream* stream) { *stream << format.extension << " " << format.bits; }

[[nodiscard]] Samples readAll (AudioSource& source, int blockSize = 1000)
{
    Samples samples (size_t (source.getLength()));

    for (size_t start = 0; start < samples.size(); start += size_t (blockSize))
        source.read (juce::int64 (start),
                     std::span (samples).subspan (start, std::min (size_t (blockSize), samples.size() - start)));

    return samples;
}

[[nodiscard]] float largestDifference (const Samples& a, const Samples& b)
{
    return std::transform_reduce (
        a.begin(),
        a.end(),
        b.begin(),
        0.0f,
        [] (float x, float y) { return std::max (x, y); },
        [] (float x, float y) { return std::abs (x - y); });
}

class AudioSourceFormats : public testing::TestWithParam<std::tuple<Format, int>>
{
};

TEST_P (AudioSourceFormats, GiveTheMeanOfTheirChannels)
{
    const auto& [format, numChannels] = GetParam();
    constexpr int length = 30000;

    Channels channels;
    Samples mean (length);

    for (int i = 0; i < numChannels; ++i)
    {
        channels.push_back (makeSine (200.0 + 130.0 * i, 0.4f, length, rate));

        for (size_t n = 0; n < length; ++n)
            mean[n] += channels.back()[n] / float (numChannels);
    }

    const FileFolder folder;
    const auto file = folder.getFile (juce::String ("a.") + format.extension);
    writeAudioFile (file, channels, rate, format.bits);

    AudioSource source (file);
    EXPECT_EQ (source.getSampleRate(), rate);
    ASSERT_EQ (source.getLength(), length);
    EXPECT_LE (largestDifference (readAll (source), mean), format.tolerance);
}

INSTANTIATE_TEST_SUITE_P (All,
                          AudioSourceFormats,
                          testing::Combine (testing::Values (Format { "wav", 8, 1.0e-2f },
                                                             Format { "wav", 16, 5.0e-5f },
                                                             Format { "wav", 24, 1.0e-6f },
                                                             Format { "wav", 32, 1.0e-6f },
                                                             Format { "aiff", 16, 5.0e-5f },
                                                             Format { "aiff", 24, 1.0e-6f },
                                                             Format { "flac", 16, 5.0e-5f },
                                                             Format { "flac", 24, 1.0e-6f },
                                                             Format { "ogg", 16, 1.0e-1f }),
                                            testing::Values (1, 2, 6)));

/** Channels that no source of which is that of another. */
[[nodiscard]] Channels makeThreeChannels()
{
    Channels channels;

    for (const auto hz : { 200.0, 330.0, 470.0 })
        channels.push_back (makeSine (hz, 0.4f, 3000, rate));

    return channels;
}

struct Mix
{
    SourceChoice choice;
    std::array<float, 3> gains;
};

class AudioSourceMixes : public testing::TestWithParam<Mix>
{
};

TEST_P (AudioSourceMixes, AreThoseOfTheirChannels)
{
    const auto& [choice, gains] = GetParam();
    const FileFolder folder;
    const auto channels = makeThreeChannels();
    writeAudioFile (folder.getFile ("a.wav"), channels, rate, 32);
    Samples expected (3000);

    for (size_t channel = 0; channel < 3; ++channel)
        for (size_t n = 0; n < expected.size(); ++n)
            expected[n] += gains[channel] * channels[channel][n];

    AudioSource source (folder.getFile ("a.wav"), choice);
    EXPECT_EQ (source.getNumChannels(), 3);
    EXPECT_LE (largestDifference (readAll (source), expected), 1.0e-6f);
}

INSTANTIATE_TEST_SUITE_P (All,
                          AudioSourceMixes,
                          testing::Values (Mix { { Source::mean, -1 }, { 1.0f / 3, 1.0f / 3, 1.0f / 3 } },
                                           Mix { { Source::left, -1 }, { 1.0f, 0.0f, 0.0f } },
                                           Mix { { Source::right, -1 }, { 0.0f, 1.0f, 0.0f } },
                                           Mix { { Source::mid, -1 }, { 0.5f, 0.5f, 0.0f } },
                                           Mix { { Source::side, -1 }, { 0.5f, -0.5f, 0.0f } },
                                           Mix { { Source::mean, 2 }, { 0.0f, 0.0f, 1.0f } }));

TEST (AudioSource, RefusesAChannelThatTheFileDoesNotHave)
{
    const FileFolder folder;
    writeAudioFile (folder.getFile ("a.wav"), { makeSine (200.0, 0.4f, 3000, rate) }, rate, 16);

    for (const auto choice : { SourceChoice { Source::side, -1 }, SourceChoice { Source::mean, 1 } })
    {
        try
        {
            const AudioSource source (folder.getFile ("a.wav"), choice);
            ADD_FAILURE() << "was opened";
        }
        catch (const RenderError& error)
        {
            EXPECT_THAT (error.what(), HasSubstr ("--source needs 2 channels; 'a.wav' has 1"));
            EXPECT_EQ (error.getExitCode(), RenderError::usage);
        }
    }
}

[[nodiscard]] std::string complaintAbout (const juce::File& file)
{
    try
    {
        AudioSource source (file);
        juce::ignoreUnused (readAll (source));
        return {};
    }
    catch (const RenderError& error)
    {
        EXPECT_EQ (error.getExitCode(), RenderError::failure);
        return error.what();
    }
}

TEST (AudioSource, IsSilentBeforeTheStartAndAfterTheEnd)
{
    const FileFolder folder;
    const auto file = folder.getFile ("a.wav");
    writeAudioFile (file, { Samples (100, 0.5f) }, rate, 32);

    AudioSource source (file);
    Samples samples (120, 9.0f);
    source.read (-10, samples);

    for (size_t i = 0; i < samples.size(); ++i)
        EXPECT_EQ (samples[i], i >= 10 && i < 110 ? 0.5f : 0.0f) << i;

    for (const auto position : { -1000, 1000 })
    {
        std::fill (samples.begin(), samples.end(), 9.0f);
        source.read (position, samples);
        EXPECT_EQ (samples, Samples (120)) << position;
    }
}

TEST (AudioSource, ReadsTheSameSectionFromEveryFormat)
{
    const FileFolder folder;
    const auto signal = makeQuietNoise (200000);
    Samples section (1000);

    for (const auto* const extension : { "wav", "aiff", "flac" })
    {
        const auto file = folder.getFile (juce::String ("a.") + extension);
        writeAudioFile (file, { signal }, rate, 24);
        AudioSource source (file);
        source.read (150123, section);

        for (size_t i = 0; i < section.size(); ++i)
            ASSERT_NEAR (section[i], signal[150123 + i], 1.0e-6f) << extension;
    }
}

TEST (AudioSource, DetectsTheFormatByContentNotByFileName)
{
    const FileFolder folder;
    writeAudioFile (folder.getFile ("a.flac"), { makeQuietNoise (1000) }, rate);
    const auto renamed = folder.getFile ("a.wav");
    ASSERT_TRUE (folder.getFile ("a.flac").moveFileTo (renamed));
    EXPECT_EQ (complaintAbout (renamed), "");
}

TEST (AudioSource, RefusesAFileThatIsNotAudio)
{
    const FileFolder folder;
    EXPECT_EQ (complaintAbout (folder.getFile ("none.wav")), "'none.wav' does not exist");
    EXPECT_THAT (complaintAbout (folder.getFile ("")), HasSubstr ("is a folder"));

    const auto file = folder.getFile ("x.wav");
    ASSERT_TRUE (file.create());
    EXPECT_EQ (complaintAbout (file), "'x.wav' is empty");

    ASSERT_TRUE (file.replaceWithText (juce::String::repeatedString ("This is a text. ", 5000)));
    EXPECT_THAT (complaintAbout (file), HasSubstr ("is not audio that can be read"));
}

TEST (AudioSource, RefusesAFileWithoutSamples)
{
    const FileFolder folder;

    for (const auto* const extension : { "wav", "aiff" })
    {
        const auto file = folder.getFile (juce::String ("a.") + extension);
        writeAudioFile (file, { Samples() }, rate);
        EXPECT_THAT (complaintAbout (file), HasSubstr ("holds no audio")) << extension;
    }
}

TEST (AudioSource, RefusesATruncatedFileWhereverItIsCut)
{
    const FileFolder folder;

    for (const auto* const extension : { "wav", "aiff", "flac", "ogg" })
    {
        for (const auto share : { 0.999, 0.9, 0.5, 0.2 })
        {
            const auto file = folder.getFile (juce::String ("a.") + extension);
            writeAudioFile (file, { makeQuietNoise (100000), makeQuietNoise (100000, 2) }, rate);
            EXPECT_EQ (complaintAbout (file), "") << extension;

            truncateFile (file, juce::int64 (double (file.getSize()) * share));
            EXPECT_THAT (complaintAbout (file), HasSubstr ("is truncated")) << extension << " " << share;
            file.deleteFile();
        }
    }
}

TEST (AudioSource, RefusesAFileThatIsCutWithinItsHeader)
{
    const FileFolder folder;

    for (const auto* const extension : { "wav", "aiff", "flac", "ogg" })
    {
        const auto file = folder.getFile (juce::String ("a.") + extension);

        for (const auto size : { 1, 4, 10, 20, 40 })
        {
            writeAudioFile (file, { makeQuietNoise (1000) }, rate);
            truncateFile (file, size);
            EXPECT_NE (complaintAbout (file), "") << extension << " " << size;
            file.deleteFile();
        }
    }
}

/** Writes a WAV file of 100 stereo frames with the given values in its header. */
void writeWav (const juce::File& file, int format, int numChannels, int sampleRate, int bits, int dataSize)
{
    juce::FileOutputStream stream (file);
    stream.write ("RIFF", 4);
    stream.writeInt (36 + dataSize);
    stream.write ("WAVEfmt ", 8);
    stream.writeInt (16);
    stream.writeShort (short (format));
    stream.writeShort (short (numChannels));
    stream.writeInt (sampleRate);
    stream.writeInt (int (juce::uint32 (sampleRate) * juce::uint32 (numChannels * bits / 8)));
    stream.writeShort (short (numChannels * bits / 8));
    stream.writeShort (short (bits));
    stream.write ("data", 4);
    stream.writeInt (dataSize);
    stream.writeRepeatedByte (1, 400);
}

TEST (AudioSource, RefusesImpossibleHeaders)
{
    const FileFolder folder;
    const auto file = folder.getFile ("a.wav");

    const auto complaint = [&] (int format, int numChannels, int sampleRate, int bits, int dataSize)
    {
        file.deleteFile();
        writeWav (file, format, numChannels, sampleRate, bits, dataSize);
        return complaintAbout (file);
    };

    EXPECT_EQ (complaint (1, 2, 44100, 16, 400), "");
    EXPECT_THAT (complaint (1, 2, 44100, 16, 404), HasSubstr ("is truncated"));
    EXPECT_THAT (complaint (1, 2, 44100, 16, -1), HasSubstr ("is truncated"));
    EXPECT_THAT (complaint (1, 2, 44100, 16, 0), HasSubstr ("holds no audio"));
    EXPECT_THAT (complaint (1, 0, 44100, 16, 400), HasSubstr ("not audio that can be read"));
    EXPECT_THAT (complaint (1, 2000, 44100, 16, 4000000), HasSubstr ("2000 channels"));
    EXPECT_THAT (complaint (1, 2, 0, 16, 400), HasSubstr ("not audio that can be read"));
    EXPECT_THAT (complaint (1, 2, 2000000000, 16, 400), HasSubstr ("sample rate of"));
    EXPECT_THAT (complaint (1, 2, 44100, 12, 300), HasSubstr ("12 bits"));
    EXPECT_THAT (complaint (3, 2, 44100, 64, 400), HasSubstr ("not audio that can be read"));
    EXPECT_THAT (complaint (6, 2, 44100, 8, 400), HasSubstr ("not audio that can be read"));
}

} // namespace
} // namespace mk::orlo::test
