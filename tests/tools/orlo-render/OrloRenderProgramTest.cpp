// SPDX-License-Identifier: AGPL-3.0-or-later
// Help, progress and interruption of the program.
#include "OrloRenderFixture.h"

namespace mk::orlo::test
{
namespace
{
using testing::HasSubstr;

TEST_F (OrloRender, PrintsHelpAndVersionOnTheStandardOutput)
{
    const auto help = run ({ ORLO_RENDER_PROGRAM, "--help" }, juce::ChildProcess::wantStdOut);
    EXPECT_EQ (help.exitCode, 0);
    EXPECT_TRUE (help.text.contains ("--colourMap"));

    const auto version = run ({ ORLO_RENDER_PROGRAM, "--version" }, juce::ChildProcess::wantStdOut);
    EXPECT_EQ (version.exitCode, 0);
    EXPECT_EQ (version.text, "orlo-render 1.2.1\n");
}

TEST_F (OrloRender, ShowsTheProgressOnATerminal)
{
    const juce::File script ("/usr/bin/script");

    if (! script.existsAsFile())
        GTEST_SKIP() << "needs the program 'script', which provides a terminal";

    writeInput ({ makeQuietNoise (50000) });
    const auto command = juce::String (ORLO_RENDER_PROGRAM).quoted ('\'') + " " + input.getFullPathName().quoted ('\'')
                         + " " + picture.getFullPathName().quoted ('\'');
    const auto outcome = run ({ script.getFullPathName(), "--quiet", "--return", "--command", command, "/dev/null" },
                              juce::ChildProcess::wantStdOut);
    EXPECT_EQ (outcome.exitCode, 0);
    EXPECT_THAT (outcome.text.toStdString(), HasSubstr ("\r[########################################] 100 %\r"));

    int last = -1;

    for (const auto& shown : juce::StringArray::fromTokens (outcome.text, "\r", {}))
        if (shown.contains ("%"))
        {
            const auto percent = shown.fromFirstOccurrenceOf ("]", false, false).getIntValue();
            EXPECT_GT (percent, last) << outcome.text;
            last = percent;
        }
}

TEST_F (OrloRender, LeavesNoFilesBehindWhenInterrupted)
{
    // The job takes seconds; it is interrupted as soon as the temporary file exists.
    writeInput ({ makeQuietNoise (60 * 44100) });
    const auto where = input.getParentDirectory().getFullPathName().quoted ('\'');
    const auto command = juce::String (ORLO_RENDER_PROGRAM).quoted ('\'') + " " + input.getFullPathName().quoted ('\'')
                         + " " + picture.getFullPathName().quoted ('\'')
                         + " --fftSize 8192 --hiDPI 2x --width 100 & pid=$!; until ls -A " + where
                         + " | grep -q orlo-render-; do kill -0 $pid || break; done; kill $pid; wait $pid";
    expectFailure (run ({ "/bin/sh", "-c", command }, juce::ChildProcess::wantStdErr), 130, "interrupted");
}

} // namespace
} // namespace mk::orlo::test
