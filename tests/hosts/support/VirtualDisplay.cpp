// SPDX-License-Identifier: AGPL-3.0-or-later
#include "VirtualDisplay.h"

namespace mk::orlo::test
{

VirtualDisplay::VirtualDisplay()
{
    // It picks a free number by itself and says which when it is ready.
    if (! server.start ({ "Xvfb", "-displayfd", "1", "-screen", "0", "1600x1000x24", "-nolisten", "tcp" },
                        juce::ChildProcess::wantStdOut))
        return;

    juce::String number;
    char digit = 0;

    while (server.readProcessOutput (&digit, 1) == 1 && digit != '\n')
        number += juce::String::charToString (juce::juce_wchar (digit));

    if (number.isNotEmpty())
        name = ":" + number;
}

VirtualDisplay::~VirtualDisplay() { server.kill(); }

} // namespace mk::orlo::test
