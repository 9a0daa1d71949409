// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Screen.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <juce_events/juce_events.h>

/** Leaks inside libraries: the C library keeps its list of the locales looked for, and the Vorbis encoder,
    which only tests use, does not free its setup for six channels. */
extern "C" [[gnu::visibility ("default")]] const char* __lsan_default_suppressions();

const char* __lsan_default_suppressions() { return "leak:__argz_add_sep\nleak:vorbis_encode_setup_init\n"; }

namespace
{

/** Turns JUCE's assertions, which a debug build only logs, into failures of the test that runs. */
struct AssertionLogger final : juce::Logger
{
    AssertionLogger() { setCurrentLogger (this); }
    ~AssertionLogger() override { setCurrentLogger (nullptr); }

    void logMessage (const juce::String& message) override
    {
        if (message.startsWith ("JUCE Assertion failure"))
            ADD_FAILURE() << message;
    }
};

/** Sends secure requests, such as the update check of a window that a test opens, to a proxy that does not
    exist, so that no test reaches another machine. */
void keepRequestsOnThisMachine()
{
#if ! JUCE_WINDOWS
    setenv ("https_proxy", "http://127.0.0.1:9", 1);
    unsetenv ("http_proxy");
    unsetenv ("all_proxy");
#endif
}

} // namespace

int main (int argc, char** argv)
{
    testing::InitGoogleTest (&argc, argv);
    const mk::orlo::test::TemporaryHome home;
    keepRequestsOnThisMachine();

    const AssertionLogger logger;

    // Without a window manager, the X server does not know some of the properties that JUCE sets on a window.
    // Its errors end the program unless JUCE takes it for an application and catches them.
    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };

    static_cast<void> (mk::orlo::test::Screen::getInstance());

    // The thread that runs the tests is the message thread.
    const juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
