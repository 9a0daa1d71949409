// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/hosts/support/HostProcess.h"
#include "tests/hosts/support/ScratchFolder.h"
#include "tests/hosts/support/VirtualDisplay.h"

#include <gtest/gtest.h>

#include <string>

namespace mk::orlo::test
{
namespace
{
// A build without optimisation opens an editor in about half a second.
constexpr int timeLimitSeconds = 240;

constexpr auto loadOnly = "load unload";
constexpr auto instanceOnly = "load instance delete unload";
constexpr auto withEditor = "load instance editor close delete unload";
constexpr auto twoEditors = "load instance editor instance editor close delete close delete unload";
constexpr auto reopened = "load instance editor close editor close delete unload";

/** Runs a separate process that loads the bundle, plays the rounds, and returns from main. */
class BundleLifecycle : public testing::TestWithParam<std::string>
{
protected:
    BundleLifecycle()
    {
        // A network request keeps its thread alive for an unknown time, so the update check is off here.
        const auto settings = home.getFile ("Morlek/Orlo/Orlo.settings");
        settings.create();
        settings.replaceWithText ("<PROPERTIES><VALUE name=\"settings\"><settings checkForUpdates=\"0\"/></VALUE>"
                                  "</PROPERTIES>");
    }

    void SetUp() override
    {
        if (display.getName().isEmpty())
            GTEST_SKIP() << "needs Xvfb";
    }

    /** The tool, if any, is a program with its options that runs the other process. */
    [[nodiscard]] ProcessResult play (const juce::String& thread,
                                      int numRounds,
                                      const juce::String& steps,
                                      const juce::StringArray& tool = {}) const
    {
        juce::StringArray commandLine { "env",
                                        "DISPLAY=" + display.getName(),
                                        "HOME=" + home.getPath ({}),
                                        "XDG_CONFIG_HOME=" + home.getPath (".config") };
        commandLine.addArray (tool);
        commandLine.addArray ({ ORLO_BUNDLE_LIFECYCLE, ORLO_BUNDLE_BINARY, thread, juce::String (numRounds) });
        commandLine.addTokens (steps, false);
        return runProcess (commandLine, timeLimitSeconds);
    }

    const VirtualDisplay display;
    const ScratchFolder home;
};

TEST_P (BundleLifecycle, EndsWellAfterEveryOrderOfLoadingAndOpening)
{
    for (const auto& first : { loadOnly, instanceOnly, withEditor, twoEditors, reopened })
    {
        for (const auto& second : { "", loadOnly, withEditor })
        {
            const auto steps = juce::String (first) + " " + second;
            const auto result = play (GetParam(), 1, steps);
            EXPECT_EQ (result.exitCode, 0) << steps << "\n" << result.errors;
        }
    }
}

INSTANTIATE_TEST_SUITE_P (OnTheThread,
                          BundleLifecycle,
                          testing::Values (std::string ("main"), std::string ("ended"), std::string ("lasting")));

using BundleLifecycleRepeated = BundleLifecycle;

TEST_F (BundleLifecycleRepeated, LeavesNothingBehindWhenLoadedTwoHundredTimes)
{
    const auto result = play ("main", 100, juce::String (withEditor) + " " + instanceOnly);
    EXPECT_EQ (result.exitCode, 0) << result.output << result.errors;
    EXPECT_TRUE (result.output.contains ("threads")) << "nothing was measured";
}

// Checks only a few loads, since valgrind takes about three seconds for each editor.
TEST_F (BundleLifecycleRepeated, HasNoMemoryErrorAndLeaksNothingUnderValgrind)
{
#ifdef ORLO_VALGRIND
    const auto result = play ("main",
                              2,
                              juce::String (withEditor) + " " + instanceOnly,
                              { ORLO_VALGRIND,
                                "--quiet",
                                "--error-exitcode=3",
                                "--leak-check=full",
                                "--errors-for-leak-kinds=definite,possible",
                                "--num-callers=30",
                                "--suppressions=" ORLO_VALGRIND_SUPPRESSIONS });
    EXPECT_EQ (result.exitCode, 0) << result.errors;
#else
    GTEST_SKIP() << "needs valgrind";
#endif
}
} // namespace
} // namespace mk::orlo::test
