// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** The colour that the component or its look and feel has for the id; the fallback where neither has one,
    so that a component can be shown under any look. [message thread] */
[[nodiscard]] inline juce::Colour findColourOr (const juce::Component& component, int colourId, juce::Colour fallback)
{
    const auto isKnown =
        component.isColourSpecified (colourId) || component.getLookAndFeel().isColourSpecified (colourId);
    return isKnown ? component.findColour (colourId) : fallback;
}

} // namespace mk::pluginCore
