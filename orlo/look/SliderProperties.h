// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo
{

/** A style property of a slider: its own, else that of its parent control, else void.
    [message thread] */
[[nodiscard]] inline juce::var findSliderProperty (const juce::Slider& slider, const juce::Identifier& name)
{
    for (const juce::Component* component : { static_cast<const juce::Component*> (&slider),
                                              static_cast<const juce::Component*> (slider.getParentComponent()) })
        if (component != nullptr && component->getProperties().contains (name))
            return component->getProperties()[name];

    return {};
}

} // namespace mk::orlo
