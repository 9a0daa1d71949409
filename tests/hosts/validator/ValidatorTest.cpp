// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tests/hosts/support/HostProcess.h"

#include <gmock/gmock.h>

namespace mk::orlo::test
{
namespace
{
/** What the validator found. */
struct Findings
{
    std::vector<juce::String> failedTests, errors;
    int numSucceeded = 0, numFailed = 0;
    juce::String summary;
};

[[nodiscard]] Findings runValidator (const juce::StringArray& options)
{
    juce::StringArray command { ORLO_VALIDATOR };
    command.addArray (options);
    command.add (ORLO_BUNDLE);

    Findings findings;
    juce::String test;

    for (const auto& line : juce::StringArray::fromLines (runProcess (command).output))
    {
        if (line.startsWith ("[Succeeded"))
            ++findings.numSucceeded;
        else if (line.startsWith ("[XXX"))
        {
            ++findings.numFailed;
            findings.failedTests.push_back (test);
        }
        else if (line.startsWithChar ('['))
            test = line.fromFirstOccurrenceOf ("[", false, false).upToLastOccurrenceOf ("]", false, false);
        else if (line.startsWith ("ERROR"))
            findings.errors.push_back (line);
        else if (line.startsWith ("Result:"))
            findings.summary = line;
    }

    return findings;
}

/** The plug-in keeps its presets in a list of its own, so its one program has no name, which the validator
    reports. Nothing else may fail. */
void expectNothingButTheNamelessProgram (const Findings& findings, int fewestTests)
{
    EXPECT_THAT (findings.failedTests, testing::ElementsAre ("Scan Programs"));
    EXPECT_THAT (findings.errors, testing::ElementsAre ("ERROR: Programlist 000->Program 000: has no name!!!"));
    EXPECT_GE (findings.numSucceeded, fewestTests);

    // The validator ran to its end, and its own counts equal those found here.
    EXPECT_EQ (findings.summary,
               "Result: " + juce::String (findings.numSucceeded) + " tests passed, " + juce::String (findings.numFailed)
                   + " tests failed");
}

TEST (Validator, FindsNothingButTheNamelessProgram) { expectNothingButTheNamelessProgram (runValidator ({}), 40); }

TEST (Validator, FindsNothingElseInTheExtensiveTestsEither)
{
    expectNothingButTheNamelessProgram (runValidator ({ "-e" }), 500);
}
} // namespace
} // namespace mk::orlo::test
