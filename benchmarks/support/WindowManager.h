// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_events/juce_events.h>

namespace mk::orlo::bench
{

/** To be called before JUCE starts. Without a window manager, X11 reports errors for what JUCE sets on a window, and
    JUCE handles these only in a process that it takes for an application. */
inline void allowWindowsWithoutManager()
{
    juce::JUCEApplicationBase::createInstance = []() -> juce::JUCEApplicationBase* { return nullptr; };
}

} // namespace mk::orlo::bench
