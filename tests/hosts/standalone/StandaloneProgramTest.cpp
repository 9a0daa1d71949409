// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/hosts/support/HostProcess.h"
#include "tests/hosts/support/ScratchFolder.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
/** Runs the standalone program without a display. */
[[nodiscard]] ProcessResult run (const juce::StringArray& arguments)
{
    const ScratchFolder home;

    // An invalid name, because without any the program would try the machine's first display.
    juce::StringArray commandLine { "env", "-u", "XDG_CONFIG_HOME", "DISPLAY=none", "HOME=" + home.getPath ({}) };
    commandLine.add (ORLO_STANDALONE_PROGRAM);
    commandLine.addArray (arguments);
    return runProcess (commandLine);
}

TEST (StandaloneProgram, PrintsItsVersion)
{
    const auto result = run ({ "--version" });
    EXPECT_EQ (result.exitCode, 0) << result.errors;
    EXPECT_EQ (result.output, "Orlo 1.2.1\n");
}

TEST (StandaloneProgram, PrintsItsHelpEvenBesideAFile)
{
    const auto result = run ({ "sound.wav", "--help" });
    EXPECT_EQ (result.exitCode, 0) << result.errors;
    EXPECT_THAT (result.output.toStdString(), testing::HasSubstr ("usage: orlo [OPTION...] [AUDIO FILE]"));
}

TEST (StandaloneProgram, EndsWithALineThatSaysWhatIsWrong)
{
    const auto unknown = run ({ "--loud" });
    EXPECT_EQ (unknown.exitCode, 1);
    EXPECT_EQ (unknown.errors, "orlo: unknown option '--loud' (see --help)\n");

    const auto without = run ({});
    EXPECT_EQ (without.exitCode, 1);
    EXPECT_EQ (without.errors, "orlo: there is no display\n");
}
} // namespace
} // namespace mk::orlo::test
