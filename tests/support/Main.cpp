// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Screen.h"

#include <gtest/gtest.h>
#include <juce_events/juce_events.h>

int main (int argc, char** argv)
{
    testing::InitGoogleTest (&argc, argv);

    static_cast<void> (mk::orlo::test::Screen::getInstance());

    // The thread that runs the tests is the message thread.
    const juce::ScopedJuceInitialiser_GUI juce;
    return RUN_ALL_TESTS();
}
