// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CommandLine.h"
#include "ProgressBar.h"
#include "RenderError.h"
#include "RunRender.h"

#include <juce_events/juce_events.h>

#include <atomic>
#include <csignal>
#include <iostream>
#include <new>

#if JUCE_WINDOWS
    #include <io.h>
#else
    #include <unistd.h>
#endif

namespace
{
using namespace mk::orlo::render;

// Written by the signal handler, read by the rendering.
std::atomic<bool> wasInterrupted { false };
static_assert (std::atomic<bool>::is_always_lock_free);

void interrupt (int) noexcept { wasInterrupted.store (true, std::memory_order_relaxed); }

/** Catches the signals that end programs, so that the temporary files are removed first. */
void catchSignals()
{
    std::signal (SIGINT, interrupt);
    std::signal (SIGTERM, interrupt);

#ifdef SIGXFSZ
    std::signal (SIGXFSZ, SIG_IGN); // reaching the file size limit is then an ordinary failed write
#endif
}

[[nodiscard]] bool isErrorStreamATerminal()
{
#if JUCE_WINDOWS
    return _isatty (_fileno (stderr)) != 0;
#else
    return isatty (STDERR_FILENO) != 0;
#endif
}

void runCommand (const CommandLine& command)
{
    if (command.action == CommandLine::Action::showHelp)
    {
        std::cout << getHelpText();
    }
    else if (command.action == CommandLine::Action::showVersion)
    {
        std::cout << "orlo-render " ORLO_VERSION_STRING "\n";
    }
    else
    {
        catchSignals();
        ProgressBar bar (std::cerr, isErrorStreamATerminal());

        run (command.options,
             [&bar] (double done)
             {
                 bar.show (done);
                 return ! wasInterrupted.load (std::memory_order_relaxed);
             });
    }
}

[[nodiscard]] int fail (const char* line, int exitCode)
{
    // A file's name may contain line breaks, but the error must be one line.
    std::cerr << "orlo-render: " << juce::String::fromUTF8 (line).replaceCharacters ("\r\n", "  ") << std::endl;
    return exitCode;
}
} // namespace

int main (int argc, char** argv)
{
    // The engine posts messages, for which JUCE needs a message manager even though none is delivered here.
    const juce::ScopedJuceInitialiser_GUI juce;

    juce::StringArray arguments;

    for (int i = 1; i < argc; ++i)
        arguments.add (juce::String::fromUTF8 (argv[i]));

    try
    {
        runCommand (parseCommandLine (arguments));
        return 0;
    }
    catch (const RenderError& error)
    {
        return fail (error.what(), error.getExitCode());
    }
    catch (const std::bad_alloc&)
    {
        return fail ("there is not enough memory for a picture of this size", RenderError::failure);
    }
    catch (const std::exception& error)
    {
        return fail (error.what(), RenderError::failure);
    }
}
