// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HostProcess.h"

#include "ScratchFolder.h"

#include <iostream>

namespace mk::orlo::test
{
namespace
{
constexpr int endingMs = 10000;

[[nodiscard]] juce::StringArray concatenate (juce::StringArray first, const juce::StringArray& second)
{
    first.addArray (second);
    return first;
}
/** Removes JUCE's own assertions from a debug build's output: it logs some about files that hold no plug-in,
    and about how its VST3 wrapper closes the desktop. Other assertions stay. */
[[nodiscard]] juce::String withoutRemarksOfJuce (const juce::String& text)
{
#if JUCE_DEBUG
    juce::String rest;

    for (const auto& line : juce::StringArray::fromTokens (text.trimCharactersAtEnd ("\n"), "\n", {}))
        if (line.isNotEmpty() && ! line.startsWith ("JUCE Assertion failure in juce_"))
            rest << line << "\n";

    return rest;
#else
    return text;
#endif
}
} // namespace

ProcessResult runProcess (const juce::StringArray& commandLine, int timeLimitSeconds)
{
    // A pipe for one stream and a file for the other, because two pipes that are read one after the other may block.
    const ScratchFolder scratch;
    const auto errorFile = scratch.getFile ("errors");
    const juce::StringArray shell { "sh",
                                    "-c",
                                    "errors=$1; shift; exec timeout --kill-after=5 " + juce::String (timeLimitSeconds)
                                        + " \"$@\" 2> \"$errors\"",
                                    "sh",
                                    errorFile.getFullPathName() };

    juce::ChildProcess process;

    if (! process.start (concatenate (shell, commandLine), juce::ChildProcess::wantStdOut))
    {
        std::cerr << "Cannot start " << commandLine.joinIntoString (" ") << std::endl;
        std::abort();
    }

    ProcessResult result;
    result.output = process.readAllProcessOutput();
    process.waitForProcessToFinish (endingMs);
    result.exitCode = int (process.getExitCode());
    result.errors = withoutRemarksOfJuce (errorFile.loadFileAsString());
    return result;
}

juce::StringArray getHostCommandLine (const juce::StringArray& arguments)
{
    // An invalid name, because without any the program would try the machine's first display.
    return concatenate ({ "env", "DISPLAY=none", ORLO_HOST_PROGRAM, "--no-sound" }, arguments);
}

ProcessResult runHost (const juce::StringArray& arguments) { return runProcess (getHostCommandLine (arguments)); }

ProcessResult runHostOn (const juce::String& display, const juce::StringArray& arguments)
{
    return runProcess (concatenate ({ "env", "DISPLAY=" + display, ORLO_HOST_PROGRAM, "--no-sound" }, arguments));
}

} // namespace mk::orlo::test
