// SPDX-License-Identifier: AGPL-3.0-or-later
// Error messages, exit codes and remaining files when the program fails.
#include "OrloRenderFixture.h"
#include "tests/support/Sanitizers.h"

namespace mk::orlo::test
{
namespace
{
TEST_F (OrloRender, FailsWithoutTheInputFile) { expectFailure (render(), 1, "'in.wav' does not exist", 0); }

TEST_F (OrloRender, FailsOnAFileThatIsNotAudio)
{
    ASSERT_TRUE (input.replaceWithText ("This is not audio."));
    expectFailure (render(), 1, "is not audio that can be read");
}

TEST_F (OrloRender, FailsOnAnEmptyFile)
{
    ASSERT_TRUE (input.create());
    expectFailure (render(), 1, "'in.wav' is empty");
    input.deleteFile();
    writeInput ({ Samples() });
    expectFailure (render(), 1, "holds no audio");
}

TEST_F (OrloRender, FailsOnATruncatedFile)
{
    for (const auto* const name : { "in.wav", "in.aiff", "in.flac", "in.ogg" })
    {
        writeInput ({ makeQuietNoise (100000) }, 16, name);
        truncateFile (folder.getFile (name), folder.getFile (name).getSize() / 2);

        for (const auto* const threads : { "--threads=1", "--threads=4" })
            expectFailure (render ({ "--levels=" + levels.getFullPathName(), threads }, name), 1, "is truncated");

        folder.getFile (name).deleteFile();
    }
}

TEST_F (OrloRender, FailsOnATruncatedFileEvenIfThePictureEndsBeforeTheCut)
{
    writeInput ({ makeQuietNoise (100000) });
    truncateFile (input, input.getSize() / 2);
    expectFailure (render ({ "--duration=0.5" }), 1, "is truncated");
}

TEST_F (OrloRender, FailsIfTheTargetCannotBeWritten)
{
    writeInput ({ makeQuietNoise (1000) });
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

TEST_F (OrloRender, FailsOnAFullDiskAndKeepsTheExistingFiles)
{
    writeInput ({ makeQuietNoise (40000) });
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

TEST_F (OrloRender, FailsOnUnknownValues)
{
    writeInput ({ makeQuietNoise (1000) });
    expectFailure (render ({ "--mode", "Best" }), 2, "--mode: 'Best' is not one of Classic, Enhanced");
    expectFailure (render ({ "--colourMap=pink" }), 2, "is not one of gray, cubehelix");
    expectFailure (render ({ "--floor", "-141" }), 2, "lies outside -140 to 0");
    expectFailure (render ({ "--minFreq=30000Hz" }), 2, "lies above half the sample rate");
    expectFailure (render ({ "--size=3" }), 2, "unknown option '--size'");
    expectFailure (render ({ "--height" }), 2, "--height needs a value");
    expectFailure (render ({ "--height=0" }), 2, "is not a whole number from 1 to 32767");
    expectFailure (render ({ "--threads=0" }), 2, "--threads: '0' is not a whole number from 1 to 256");
    expectFailure (render ({ "--start=1" }), 2, "behind the end of 'in.wav', which lasts 0.023 s");
    expectFailure (run ({ ORLO_RENDER_PROGRAM }, juce::ChildProcess::wantStdErr), 2, "are needed");
}

TEST_F (OrloRender, FailsIfThePictureIsTooWideAndNoWidthIsGiven)
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

TEST_F (OrloRender, FailsIfThePictureIsTooLargeForTheMemory)
{
    writeInput ({ makeQuietNoise (5000 * 163) }, 16);
    expectFailure (render ({ "--height=32767" }), 2, "5000 by 32767 pixels is too large");
}

TEST_F (OrloRender, UsesNoMoreMemoryForLongerFilesIfAWidthIsGiven)
{
    if (hasAddressSanitizer || hasThreadSanitizer)
        GTEST_SKIP() << "a sanitizer reserves more memory than the limit";

    // 200000 columns of 1024 levels would be 800 MB.
    writeAudioFile (input, { Samples (200000 * 20) }, 8000.0, 8);
    const auto command = "ulimit -v 500000; exec " + juce::String (ORLO_RENDER_PROGRAM).quoted() + " "
                         + input.getFullPathName().quoted() + " " + picture.getFullPathName().quoted()
                         + " --speed 100 --fftSize 256 --mode Classic --width 50";
    const auto outcome = run ({ "/bin/sh", "-c", command }, juce::ChildProcess::wantStdErr);
    EXPECT_EQ (outcome.exitCode, 0) << outcome.text;
}

TEST_F (OrloRender, MakesDoWithFewerThreadsIfTheSystemRefusesThem)
{
    if (hasAddressSanitizer || hasThreadSanitizer)
        GTEST_SKIP() << "a sanitizer reserves more memory than the limit";

    // There is room for the stacks of two threads of a gigabyte each, and for the work.
    writeInput ({ makeQuietNoise (600000) }, 16);
    const auto command = "ulimit -s 1000000; ulimit -v 2500000; exec " + juce::String (ORLO_RENDER_PROGRAM).quoted()
                         + " " + input.getFullPathName().quoted() + " " + picture.getFullPathName().quoted()
                         + " --fftSize 256 --mode Classic --width 50 --threads 8";
    const auto outcome = run ({ "/bin/sh", "-c", command }, juce::ChildProcess::wantStdErr);
    EXPECT_EQ (outcome.exitCode, 0) << outcome.text;
}

} // namespace
} // namespace mk::orlo::test
