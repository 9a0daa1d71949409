// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::test
{

/** What the component gets when the mouse is at a place in it. */
[[nodiscard]] inline juce::MouseEvent
    makeMouseEvent (juce::Component& component, juce::Point<float> position, juce::ModifierKeys modifiers = {})
{
    const auto now = juce::Time::getCurrentTime();

    return { juce::Desktop::getInstance().getMainMouseSource(),
             position,
             modifiers,
             juce::MouseInputSource::defaultPressure,
             juce::MouseInputSource::defaultOrientation,
             juce::MouseInputSource::defaultRotation,
             juce::MouseInputSource::defaultTiltX,
             juce::MouseInputSource::defaultTiltY,
             &component,
             &component,
             now,
             position,
             now,
             1,
             false };
}

} // namespace mk::orlo::test
