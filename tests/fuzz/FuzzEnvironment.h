// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tests/support/TemporaryHome.h"

#include <juce_events/juce_events.h>

namespace mk::orlo::test
{

/** The environment of a fuzzer's whole run: JUCE, with the fuzzer's thread as message thread, and a home folder
    of its own. Created as a static object on the first input. */
class FuzzEnvironment
{
public:
    [[nodiscard]] juce::File getHome() const { return home.getFolder(); }

private:
    /** Keeps JUCE's timer thread alive between inputs, because starting it takes most of the time. Also creates
        JUCE's static objects before this object is complete, so that they outlive it. */
    class IdleTimer final : public juce::Timer
    {
        void timerCallback() override {}
    };

    const TemporaryHome home;
    const juce::ScopedJuceInitialiser_GUI juce;
    IdleTimer timer;
};

} // namespace mk::orlo::test
