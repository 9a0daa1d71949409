// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AudioFiles.h"
#include "FileFolder.h"
#include "tests/support/Pictures.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{

/** The sample rate of the audio that the tests write. */
inline constexpr double rate = 44100.0;

/** The result of running a program. */
struct Outcome
{
    int exitCode;
    juce::String text; // the output on the requested stream
};

/** Runs a program to its end and collects one of its output streams, a flag of juce::ChildProcess. */
[[nodiscard]] inline Outcome run (const juce::StringArray& command, int stream)
{
    juce::ChildProcess process;

    if (! process.start (command, stream))
        return { -1, {} };

    // Returns when the program closes the stream, that is when it ends.
    const auto text = process.readAllProcessOutput();
    process.waitForProcessToFinish (60000);
    return { int (process.getExitCode()), text };
}

/** Runs the program as a user does, in a temporary folder. */
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

    /** Runs the program with --levels, expects success and returns the levels. */
    [[nodiscard]] NpyArray renderLevels (juce::StringArray options = {}, const juce::String& inputName = "in.wav") const
    {
        options.add ("--levels=" + levels.getFullPathName());
        const auto outcome = render (options, inputName);
        EXPECT_EQ (outcome.exitCode, 0) << outcome.text;
        EXPECT_EQ (outcome.text, "");
        return readNpy (levels);
    }

    /** Expects the exit code, one line of error that contains the text, and no new files. */
    void expectFailure (const Outcome& outcome, int exitCode, const char* text, int numFiles = 1) const
    {
        EXPECT_EQ (outcome.exitCode, exitCode);
        EXPECT_THAT (outcome.text.toStdString(), testing::HasSubstr (text));
        EXPECT_TRUE (outcome.text.startsWith ("orlo-render: ")) << outcome.text;
        EXPECT_EQ (outcome.text.indexOfChar ('\n'), outcome.text.length() - 1) << outcome.text;
        EXPECT_EQ (folder.getNames().size(), numFiles) << folder.getNames().joinIntoString (" ");
    }

    void writeInput (const Channels& channels, int bits = 24, const juce::String& name = "in.wav") const
    {
        writeAudioFile (folder.getFile (name), channels, rate, bits);
    }

    const FileFolder folder {};
    const juce::File input = folder.getFile ("in.wav"), picture = folder.getFile ("out.png"),
                     levels = folder.getFile ("out.npy");
};

} // namespace mk::orlo::test
