// SPDX-License-Identifier: AGPL-3.0-or-later
#include "HostError.h"
#include "HostSession.h"

#include <csignal>
#include <iostream>

namespace mk::orlo::host
{

/** The program: one session, from the command line to the exit code. */
class HostApplication final : public juce::JUCEApplication
{
public:
    const juce::String getApplicationName() override { return "orlo-host"; }
    const juce::String getApplicationVersion() override { return ORLO_HOST_VERSION; }
    bool moreThanOneInstanceAllowed() override { return true; }

    void initialise (const juce::String&) override
    {
        // JUCE ends the message loop cleanly on SIGINT only, so SIGTERM is turned into SIGINT.
        std::signal (SIGTERM, [] (int) { std::raise (SIGINT); });

        runOrFail ([this] { start (parseHostOptions (getCommandLineParameterArray())); });
    }

    void shutdown() override
    {
        if (session != nullptr)
            runOrFail ([this] { session->writeResults(); });

        session = nullptr;
    }

private:
    void start (HostOptions options)
    {
        if (options.showHelp)
        {
            std::cout << getHelpText();
            quit();
            return;
        }

        session = std::make_unique<HostSession> (std::move (options));
        session->onFinished = [] { quit(); };
        std::cout << session->describe() << std::endl;
    }

    /** Calls the function. If it throws, prints the error in one line and ends the program with exit code 1. */
    template <typename Function>
    void runOrFail (Function&& function)
    {
        try
        {
            function();
        }
        catch (const std::exception& error)
        {
            std::cerr << "orlo-host: " << error.what() << std::endl;
            setApplicationReturnValue (1);
            quit();
        }
    }

    std::unique_ptr<HostSession> session;
};

} // namespace mk::orlo::host

START_JUCE_APPLICATION (mk::orlo::host::HostApplication)
