// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

namespace mk::orlo::test
{

/** How a program ended. */
struct ProcessResult
{
    int exitCode = -1; /**< 124 if it had to be stopped because it did not end by itself. */
    juce::String output, errors;
};

/** Runs a program to its end, for at most a minute or the given time. */
[[nodiscard]] ProcessResult runProcess (const juce::StringArray& commandLine, int timeLimitSeconds = 60);

/** Runs orlo-host without a display and without a sound card. */
[[nodiscard]] ProcessResult runHost (const juce::StringArray& arguments);

/** Runs orlo-host on a display (":1"), without a sound card. */
[[nodiscard]] ProcessResult runHostOn (const juce::String& display, const juce::StringArray& arguments);

/** The command line of runHost(), for tests that need something around it. */
[[nodiscard]] juce::StringArray getHostCommandLine (const juce::StringArray& arguments);

} // namespace mk::orlo::test
