// SPDX-License-Identifier: AGPL-3.0-or-later
// The program itself, as a user runs it.
#include "AudioFiles.h"
#include "FileFolder.h"
#include "Pictures.h"

#include "orlo/analysis/ColourMap.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numeric>

namespace mk::orlo::test
{
namespace
{
using testing::HasSubstr;

constexpr double rate = 44100.0;

struct Outcome
{
    int exitCode;
    juce::String text; // what was written to the stream that was asked for
};

[[nodiscard]] Outcome run (const juce::StringArray& command, int stream)
{
    juce::ChildProcess process;

    if (! process.start (command, stream))
        return { -1, {} };

    // Reads until the program closes the stream, which it does at its end.
    const auto text = process.readAllProcessOutput();
    process.waitForProcessToFinish (60000);
    return { int (process.getExitCode()), text };
}

class OrloRender : public testing::Test
{
protected:
    /** Runs the program on "in.wav" or another file of the folder, with the picture going to "out.png". */
    [[nodiscard]] Outcome render (const juce::StringArray& options = {}, const juce::String& inputName = "in.wav") const
    {
        juce::StringArray command { ORLO_RENDER_PROGRAM,
                                    folder.getFile (inputName).getFullPathName(),
                                    picture.getFullPathName() };
        command.addArray (options);
        return run (command, juce::ChildProcess::wantStdErr);
    }

    /** The same, with the levels; expects it to go well. */
    [[nodiscard]] NpyArray renderLevels (juce::StringArray options = {}, const juce::String& inputName = "in.wav") const
    {
        options.add ("--levels=" + levels.getFullPathName());
        const auto outcome = render (options, inputName);
        EXPECT_EQ (outcome.exitCode, 0) << outcome.text;
        EXPECT_EQ (outcome.text, "");
        return readNpy (levels);
    }

    /** Expects a failure with one line that holds the text, and no file but those there were. */
    void expectFailure (const Outcome& outcome, int exitCode, const char* text, int numFiles = 1) const
    {
        EXPECT_EQ (outcome.exitCode, exitCode);
        EXPECT_THAT (outcome.text.toStdString(), HasSubstr (text));
        EXPECT_TRUE (outcome.text.startsWith ("orlo-render: ")) << outcome.text;
        EXPECT_EQ (outcome.text.indexOfChar ('\n'), outcome.text.length() - 1) << outcome.text;
        EXPECT_EQ (folder.getNames().size(), numFiles) << folder.getNames().joinIntoString (" ");
    }

    void writeInput (const Channels& channels, int bits = 24, const juce::String& name = "in.wav") const
    {
        writeAudioFile (folder.getFile (name), channels, rate, bits);
    }

    const FileFolder folder;
    const juce::File input = folder.getFile ("in.wav"), picture = folder.getFile ("out.png"),
                     levels = folder.getFile ("out.npy");
};

/** The row that is brightest in the middle of the picture. */
[[nodiscard]] int findBrightestRow (const juce::Image& image)
{
    int brightest = 0;

    for (int y = 0; y < image.getHeight(); ++y)
    {
        const auto levelOf = [&] (int row) { return int (image.getPixelAt (image.getWidth() / 2, row).getRed()); };

        if (levelOf (y) > levelOf (brightest))
            brightest = y;
    }

    return brightest;
}

/** Where each scale has a frequency when it goes from 0 Hz to half the sample rate; 0 at the bottom. */
[[nodiscard]] double positionOnScale (const juce::String& scale, double hz)
{
    const auto share = [hz] (auto formula)
    { return (formula (hz) - formula (0)) / (formula (rate / 2) - formula (0)); };

    if (scale == "Linear")
        return share ([] (double f) { return f; });

    if (scale == "Mel")
        return share ([] (double f) { return std::log10 (1.0 + f / 700.0); });

    if (scale == "Bark")
        return share ([] (double f) { return 26.81 * f / (f + 1960.0); });

    if (scale == "ERB")
        return share ([] (double f) { return std::log10 (1.0 + 0.00437 * f); });

    // One octave's height for all below 50 Hz.
    const auto octaves = std::log2 (rate / 2 / 50.0);
    return (1.0 + std::log2 (hz / 50.0)) / (1.0 + octaves);
}

class OrloRenderScales : public OrloRender, public testing::WithParamInterface<std::tuple<const char*, const char*>>
{
};

TEST_P (OrloRenderScales, ASineLiesOnItsRow)
{
    const auto& [scale, mode] = GetParam();
    const auto sine = makeSine (1000.0, 0.5f, 20000, rate);
    writeInput ({ sine, sine });

    ASSERT_EQ (render ({ "--freqScale", scale, "--mode", mode, "--height", "800" }).exitCode, 0);
    const auto expected = std::round ((1.0 - positionOnScale (scale, 1000.0)) * 799.0);

    // In Classic a row shows the whole bins that it covers, of which there are several on a row at the top.
    EXPECT_NEAR (findBrightestRow (readPng (picture)), expected, juce::String (mode) == "Classic" ? 2 : 1);
}

INSTANTIATE_TEST_SUITE_P (All,
                          OrloRenderScales,
                          testing::Combine (testing::Values ("Linear", "Log", "Mel", "Bark", "ERB"),
                                            testing::Values ("Classic", "Enhanced")));

class OrloRenderFormats : public OrloRender,
                          public testing::WithParamInterface<std::tuple<std::pair<const char*, int>, int>>
{
};

TEST_P (OrloRenderFormats, AToneIsSeenInEveryFormatAtItsLevel)
{
    const auto& [format, numChannels] = GetParam();
    const auto name = juce::String ("in.") + format.first;
    writeInput (Channels (size_t (numChannels), makeSine (3000.0, 0.1f, 30000, rate)), format.second, name);

    const auto array = renderLevels ({ "--height=300", "--mode=Classic", "--freqScale=Linear" }, name);
    ASSERT_EQ (array.rows, 300);
    ASSERT_EQ (array.columns, (30000 + 162) / 163);

    float loudest = 0.0f;
    int row = 0;

    for (int y = 0; y < array.rows; ++y)
        if (array.get (y, array.columns / 2) > loudest)
        {
            loudest = array.get (y, array.columns / 2);
            row = y;
        }

    // -20 dB on a scale from -100; between two bins a Hann window reads up to 1.4 dB less. Ogg loses some.
    EXPECT_NEAR (loudest, 0.8f, 0.025f);
    EXPECT_NEAR (row, std::round ((1.0 - 3000.0 / 22050.0) * 299.0), 1);
}

INSTANTIATE_TEST_SUITE_P (All,
                          OrloRenderFormats,
                          testing::Combine (testing::Values (std::pair ("wav", 16),
                                                             std::pair ("wav", 24),
                                                             std::pair ("wav", 32),
                                                             std::pair ("aiff", 16),
                                                             std::pair ("flac", 16),
                                                             std::pair ("ogg", 16)),
                                            testing::Values (1, 2, 6)));

TEST_F (OrloRender, ChannelsOutOfPhaseAreBlack)
{
    const auto left = makeSine (1000.0, 0.5f, 20000, rate);
    const auto right = makeSine (1000.0, -0.5f, 20000, rate);
    writeInput ({ left, right }, 32);

    const auto array = renderLevels ({ "--colourMap=viridis", "--height=100" });
    EXPECT_EQ (*std::max_element (array.values.begin(), array.values.end()), 0.0f);

    const auto image = readPng (picture);

    for (int y = 0; y < image.getHeight(); ++y)
        for (int x = 0; x < image.getWidth(); ++x)
            ASSERT_EQ (image.getPixelAt (x, y).getARGB(), 0xff000000u);
}

TEST_F (OrloRender, TheSameInputGivesTheSameBytes)
{
    writeInput ({ makeNoise (50000), makeNoise (50000, 2) });

    for (const auto* const mode : { "Classic", "Enhanced" })
    {
        juce::MemoryBlock pictures[2], arrays[2];

        for (int i = 0; i < 2; ++i)
        {
            juce::ignoreUnused (renderLevels ({ "--mode", mode }));
            ASSERT_TRUE (picture.loadFileAsData (pictures[i]) && levels.loadFileAsData (arrays[i]));
            picture.deleteFile();
            levels.deleteFile();
        }

        EXPECT_TRUE (pictures[0] == pictures[1]);
        EXPECT_TRUE (arrays[0] == arrays[1]);
    }
}

TEST_F (OrloRender, AWidthMergesTheColumnsByMaximum)
{
    writeInput ({ makeNoise (50000) });

    for (const auto* const mode : { "Classic", "Enhanced" })
    {
        const auto all = renderLevels ({ "--mode", mode, "--height=200" });
        const auto merged = renderLevels ({ "--mode", mode, "--height=200", "--width=50" });
        ASSERT_EQ (all.columns, (50000 + 162) / 163);
        ASSERT_EQ (merged.columns, 50);
        EXPECT_EQ (readPng (picture).getWidth(), 50);

        for (int y = 0; y < 200; ++y)
        {
            std::vector<float> expected (50);

            for (int x = 0; x < all.columns; ++x)
                expected[size_t (x * 50 / all.columns)] =
                    std::max (expected[size_t (x * 50 / all.columns)], all.get (y, x));

            for (int x = 0; x < 50; ++x)
                ASSERT_EQ (merged.get (y, x), expected[size_t (x)]) << mode << " " << x << " " << y;
        }
    }
}

TEST_F (OrloRender, APictureOfFewColumnsIsNoWiderThanThey)
{
    writeInput ({ makeNoise (16300) });
    EXPECT_EQ (renderLevels ({ "--width=4096" }).columns, 100);
    EXPECT_EQ (readPng (picture).getBounds(), juce::Rectangle<int> (100, 1024));
}

TEST_F (OrloRender, ThePictureShowsTheLevelsInTheColoursOfTheMap)
{
    writeInput ({ makeNoise (20000) });
    const auto array = renderLevels ({ "--height=100", "--mode=Classic", "--colourMap=turbo", "--floor=-140" });
    const auto image = readPng (picture);
    const ColourMap map (9);
    ASSERT_GT (*std::min_element (array.values.begin(), array.values.end()), 0.0f);
    ASSERT_EQ (image.getWidth(), array.columns);

    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < array.columns; ++x)
            ASSERT_EQ (image.getPixelAt (x, y).getARGB(), map.pixelForLevel (array.get (y, x)));
}

TEST_F (OrloRender, ASectionHasTheLengthThatWasAskedFor)
{
    // A click every second.
    Samples clicks (5 * 44100);

    for (size_t i = 0; i < 5; ++i)
        clicks[i * 44100 + 22050] = 0.9f;

    writeInput ({ clicks });
    const auto array = renderLevels ({ "--start=1", "--duration=2", "--height=64", "--fftSize=256" });


    // Two hops of 80 samples a column.
    EXPECT_EQ (array.columns, (88200 + 159) / 160);

    std::vector<int> loud;

    for (int x = 0; x < array.columns; ++x)
    {
        float sum = 0.0f;

        for (int y = 0; y < array.rows; ++y)
            sum += array.get (y, x);

        if (sum > 10.0f)
            loud.push_back (x);
    }

    EXPECT_THAT (loud, testing::ElementsAre (22050 / 160, 66150 / 160));

    // Longer than the file: up to its end.
    EXPECT_EQ (renderLevels ({ "--start=4.5", "--duration=100" }).columns, (22050 + 162) / 163);
}

TEST_F (OrloRender, FrequencyLimitsMayBeGivenInHertz)
{
    writeInput ({ makeSine (1000.0, 0.5f, 20000, rate) });
    ASSERT_EQ (render ({ "--minFreq=500Hz", "--maxFreq=1500Hz", "--freqScale=Linear", "--height=501" }).exitCode, 0);
    EXPECT_NEAR (findBrightestRow (readPng (picture)), 250, 1);
}

TEST_F (OrloRender, DoubleResolutionHalvesTheTimeOfAColumn)
{
    writeInput ({ makeNoise (44100) });
    const auto normal = renderLevels().columns;
    const auto twice = renderLevels ({ "--hiDPI", "2x" });
    EXPECT_NEAR (double (twice.columns) / normal, 2.0, 0.03);
    EXPECT_EQ (twice.rows, 1024);
}

TEST_F (OrloRender, WhatMeansNothingInAStillPictureChangesNothing)
{
    writeInput ({ makeNoise (20000) });
    juce::MemoryBlock plain, loaded;
    ASSERT_EQ (render().exitCode, 0);
    ASSERT_TRUE (picture.loadFileAsData (plain));
    ASSERT_EQ (
        render (
            { "--freeze=On", "--drawMode=Scroll", "--ruler=On", "--keyboard=On", "--autoFreeze=On", "--internal=0.5" })
            .exitCode,
        0);
    ASSERT_TRUE (picture.loadFileAsData (loaded));
    EXPECT_TRUE (plain == loaded);
}

TEST_F (OrloRender, HelpAndVersionGoToTheOutputAndSucceed)
{
    const auto help = run ({ ORLO_RENDER_PROGRAM, "--help" }, juce::ChildProcess::wantStdOut);
    EXPECT_EQ (help.exitCode, 0);
    EXPECT_TRUE (help.text.contains ("--colourMap"));

    const auto version = run ({ ORLO_RENDER_PROGRAM, "--version" }, juce::ChildProcess::wantStdOut);
    EXPECT_EQ (version.exitCode, 0);
    EXPECT_EQ (version.text, "orlo-render 1.2.1\n");
}

TEST_F (OrloRender, OnATerminalTheProgressIsShown)
{
    const juce::File script ("/usr/bin/script");

    if (! script.existsAsFile())
        GTEST_SKIP() << "needs the program script, for a terminal of its own";

    writeInput ({ makeNoise (50000) });
    const auto command = juce::String (ORLO_RENDER_PROGRAM).quoted ('\'') + " " + input.getFullPathName().quoted ('\'')
                         + " " + picture.getFullPathName().quoted ('\'');
    const auto outcome = run ({ script.getFullPathName(), "--quiet", "--return", "--command", command, "/dev/null" },
                              juce::ChildProcess::wantStdOut);
    EXPECT_EQ (outcome.exitCode, 0);
    EXPECT_THAT (outcome.text.toStdString(), HasSubstr ("\r[########################################] 100 %\r"));
}

TEST_F (OrloRender, AnInterruptionLeavesNothingBehind)
{
    // Seconds of work; it is stopped as soon as the temporary file shows that it has begun.
    writeInput ({ makeNoise (60 * 44100) });
    const auto where = input.getParentDirectory().getFullPathName().quoted ('\'');
    const auto command = juce::String (ORLO_RENDER_PROGRAM).quoted ('\'') + " " + input.getFullPathName().quoted ('\'')
                         + " " + picture.getFullPathName().quoted ('\'')
                         + " --fftSize 8192 --hiDPI 2x --width 100 & pid=$!; until ls -A " + where
                         + " | grep -q orlo-render-; do kill -0 $pid || break; done; kill $pid; wait $pid";
    expectFailure (run ({ "/bin/sh", "-c", command }, juce::ChildProcess::wantStdErr), 130, "interrupted");
}

//==============================================================================
TEST_F (OrloRender, NoFileFails) { expectFailure (render(), 1, "'in.wav' does not exist", 0); }

TEST_F (OrloRender, AFileThatIsNoAudioFails)
{
    ASSERT_TRUE (input.replaceWithText ("This is not audio."));
    expectFailure (render(), 1, "is not audio that can be read");
}

TEST_F (OrloRender, AnEmptyFileFails)
{
    ASSERT_TRUE (input.create());
    expectFailure (render(), 1, "'in.wav' is empty");
    input.deleteFile();
    writeInput ({ Samples() });
    expectFailure (render(), 1, "holds no audio");
}

TEST_F (OrloRender, ATruncatedFileFails)
{
    for (const auto* const name : { "in.wav", "in.aiff", "in.flac", "in.ogg" })
    {
        writeInput ({ makeNoise (100000) }, 16, name);
        truncateFile (folder.getFile (name), folder.getFile (name).getSize() / 2);
        expectFailure (render ({ "--levels=" + levels.getFullPathName() }, name), 1, "is truncated");
        folder.getFile (name).deleteFile();
    }
}

TEST_F (OrloRender, ATruncatedFileFailsEvenWhereThePictureEndsBeforeTheCut)
{
    writeInput ({ makeNoise (100000) });
    truncateFile (input, input.getSize() / 2);
    expectFailure (render ({ "--duration=0.5" }), 1, "is truncated");
}

TEST_F (OrloRender, APlaceThatCannotBeWrittenFails)
{
    writeInput ({ makeNoise (1000) });
    const auto target = [&] (const char* name)
    {
        return run ({ ORLO_RENDER_PROGRAM, input.getFullPathName(), folder.getFile (name).getFullPathName() },
                    juce::ChildProcess::wantStdErr);
    };

    expectFailure (target ("none/out.png"), 1, "cannot write 'out.png': there is no folder");
    expectFailure (target ("in.wav/out.png"), 1, "there is no folder");
    expectFailure (target (""), 1, "it is a folder");
    expectFailure (target ("in.wav"), 2, "both read and written");
    expectFailure (render ({ "--levels", folder.getFile ("none/out.npy").getFullPathName() }), 1, "there is no folder");
}

TEST_F (OrloRender, AFullDiskFailsAndLeavesWhatWasThere)
{
    writeInput ({ makeNoise (40000) });
    ASSERT_TRUE (picture.replaceWithText ("old"));

    for (const auto* const option : { "", "--levels=" })
    {
        const auto extra = *option != 0 ? option + levels.getFullPathName().quoted() : juce::String();
        const auto command = "ulimit -f 20; exec " + juce::String (ORLO_RENDER_PROGRAM).quoted() + " "
                             + input.getFullPathName().quoted() + " " + picture.getFullPathName().quoted() + " "
                             + extra;
        expectFailure (run ({ "/bin/sh", "-c", command }, juce::ChildProcess::wantStdErr), 1, "cannot write", 2);
        EXPECT_EQ (picture.loadFileAsString(), "old");
    }
}

TEST_F (OrloRender, UnknownValuesFail)
{
    writeInput ({ makeNoise (1000) });
    expectFailure (render ({ "--mode", "Best" }), 2, "--mode: 'Best' is not one of Classic, Enhanced");
    expectFailure (render ({ "--colourMap=pink" }), 2, "is not one of gray, cubehelix");
    expectFailure (render ({ "--floor", "-141" }), 2, "lies outside -140 to 0");
    expectFailure (render ({ "--minFreq=30000Hz" }), 2, "lies above half the sample rate");
    expectFailure (render ({ "--size=3" }), 2, "unknown option '--size'");
    expectFailure (render ({ "--height" }), 2, "--height needs a value");
    expectFailure (render ({ "--height=0" }), 2, "is not a whole number from 1 to 32767");
    expectFailure (render ({ "--start=1" }), 2, "behind the end of 'in.wav', which lasts 0.023 s");
    expectFailure (run ({ ORLO_RENDER_PROGRAM }, juce::ChildProcess::wantStdErr), 2, "are needed");
}

TEST_F (OrloRender, APictureTooWideFailsUnlessAWidthIsGiven)
{
    // 32768 columns of 20 samples, at 8 kHz and full speed.
    writeAudioFile (input, { Samples (32768 * 20) }, 8000.0, 8);
    const juce::StringArray options { "--speed=100", "--fftSize=256", "--height=4", "--mode=Classic" };

    expectFailure (render (options), 2, "would be 32768 pixels wide; more than 32767 are not possible without --width");

    auto narrower = options;
    narrower.add ("--width=100");
    EXPECT_EQ (render (narrower).exitCode, 0);
    EXPECT_EQ (readPng (picture).getBounds(), juce::Rectangle<int> (100, 4));
}

TEST_F (OrloRender, APictureTooLargeForTheMemoryFails)
{
    writeInput ({ makeNoise (5000 * 163) }, 16);
    expectFailure (render ({ "--height=32767" }), 2, "5000 by 32767 pixels is too large");
}

#if ! defined(__SANITIZE_ADDRESS__) && ! defined(__SANITIZE_THREAD__)
TEST_F (OrloRender, MemoryDoesNotGrowWithTheLengthWhenAWidthIsGiven)
{
    // 200000 columns of 1024 levels would be 800 MB.
    writeAudioFile (input, { Samples (200000 * 20) }, 8000.0, 8);
    const auto command = "ulimit -v 500000; exec " + juce::String (ORLO_RENDER_PROGRAM).quoted() + " "
                         + input.getFullPathName().quoted() + " " + picture.getFullPathName().quoted()
                         + " --speed 100 --fftSize 256 --mode Classic --width 50";
    const auto outcome = run ({ "/bin/sh", "-c", command }, juce::ChildProcess::wantStdErr);
    EXPECT_EQ (outcome.exitCode, 0) << outcome.text;
}
#endif

} // namespace
} // namespace mk::orlo::test
