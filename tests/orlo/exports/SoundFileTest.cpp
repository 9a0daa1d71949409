// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/exports/SoundFile.h"

#include "plugin_core/files/FileReplacement.h"
#include "tests/support/Signals.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <juce_audio_formats/juce_audio_formats.h>

#include <array>

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] bool goOn (double) { return true; }

/** A minute of 48 kHz would take long; this keeps 40000 samples of two channels. */
class SoundFile : public testing::Test
{
protected:
    SoundFile() { push (left, right); }

    void push (const Samples& first, const Samples& second)
    {
        const std::array<const float*, 2> channels { first.data(), second.data() };
        sound.push (channels.data(), 2, int (first.size()), {});
    }

    /** Writes the range into a file and reads the file back. */
    [[nodiscard]] juce::AudioBuffer<float> save (SoundFormat format, std::int64_t start, std::int64_t end)
    {
        const auto file = folder.get().getChildFile (format == SoundFormat::wav ? "a.wav" : "a.flac");
        const auto result = pluginCore::replaceFileInPieces (
            file, [&] (juce::OutputStream& stream) { return writeSound (sound, start, end, format, stream, goOn); });
        EXPECT_TRUE (result.wasOk()) << result.getErrorMessage();

        juce::AudioFormatManager formats;
        formats.registerBasicFormats();
        const std::unique_ptr<juce::AudioFormatReader> reader (formats.createReaderFor (file));

        if (reader == nullptr)
            return {};

        EXPECT_EQ (reader->sampleRate, 48000.0);
        juce::AudioBuffer<float> samples (int (reader->numChannels), int (reader->lengthInSamples));
        reader->read (&samples, 0, samples.getNumSamples(), 0, true, true);
        return samples;
    }

    void expectRange (const juce::AudioBuffer<float>& found, std::int64_t start, std::int64_t end, float tolerance)
    {
        ASSERT_EQ (found.getNumChannels(), 2);
        ASSERT_EQ (found.getNumSamples(), int (end - start));

        for (int i = 0; i < found.getNumSamples(); ++i)
        {
            ASSERT_NEAR (found.getSample (0, i), left[size_t (start + i)], tolerance) << i;
            ASSERT_NEAR (found.getSample (1, i), right[size_t (start + i)], tolerance) << i;
        }
    }

    const Samples left = makeQuietNoise (40000, 1), right = makeQuietNoise (40000, 2);
    KeptSound sound { 48000.0, 2, 40000 };
    TemporaryFolder folder;
};

TEST_F (SoundFile, WavHasExactlyTheSamples) { expectRange (save (SoundFormat::wav, 1000, 38000), 1000, 38000, 0.0f); }

TEST_F (SoundFile, FlacHasTheSamplesIn24Bits)
{
    expectRange (save (SoundFormat::flac, 1000, 38000), 1000, 38000, 1.3e-7f);
}

TEST_F (SoundFile, OnlyWhatIsKeptIsWritten) { expectRange (save (SoundFormat::wav, -500, 90000), 0, 40000, 0.0f); }

TEST_F (SoundFile, WhatCannotBeWrittenIsSaid)
{
    juce::MemoryOutputStream stream;
    const auto write = [&] (std::int64_t start, std::int64_t end)
    { return writeSound (sound, start, end, SoundFormat::wav, stream, goOn); };

    EXPECT_TRUE (write (50000, 60000).failed());
    EXPECT_TRUE (write (200, 200).failed());

    // What is overwritten while it is being written.
    auto isFirst = true;
    const auto overwritten = writeSound (sound,
                                         0,
                                         40000,
                                         SoundFormat::wav,
                                         stream,
                                         [&] (double)
                                         {
                                             if (std::exchange (isFirst, false))
                                                 push (left, right);

                                             return true;
                                         });
    EXPECT_TRUE (overwritten.failed());
    EXPECT_TRUE (writeSound (sound, 40000, 80000, SoundFormat::wav, stream, [] (double) { return false; }).failed());
}

TEST_F (SoundFile, AFileThatCannotBeWholeIsNotThere)
{
    const auto file = folder.get().getChildFile ("b.flac");
    const auto result = pluginCore::replaceFileInPieces (
        file,
        [&] (juce::OutputStream& stream) { return writeSound (sound, 90000, 99000, SoundFormat::flac, stream, goOn); });
    EXPECT_TRUE (result.failed());
    EXPECT_EQ (folder.get().getNumberOfChildFiles (juce::File::findFilesAndDirectories), 0);
}

} // namespace
} // namespace mk::orlo::test
