// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "tests/support/TemporaryHome.h"

#include <juce_events/juce_events.h>

namespace mk::orlo::test
{

/** What lasts for a fuzzer's whole run: JUCE, with the fuzzer's thread as message thread, and a home folder
    of its own. Made as a static object on the first input. */
class FuzzEnvironment
{
public:
    [[nodiscard]] juce::File getHome() const { return home.getFolder(); }

private:
    /** Keeps JUCE's timer thread alive between inputs, which is most of the speed. And JUCE's static objects
        are made with it, before this object is complete: so they outlive it. */
    class IdleTimer final : public juce::Timer
    {
        void timerCallback() override {}
    };

    const TemporaryHome home;
    const juce::ScopedJuceInitialiser_GUI juce;
    IdleTimer timer;
};

} // namespace mk::orlo::test
