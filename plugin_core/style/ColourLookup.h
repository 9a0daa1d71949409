// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Palette.h"

#include <algorithm>

namespace mk::pluginCore
{

/** The colour that the component or its look and feel has for the id; the fallback if neither has one, so
    that a component can be shown with any look and feel. [message thread] */
[[nodiscard]] inline juce::Colour findColourOr (const juce::Component& component, int colourId, juce::Colour fallback)
{
    const auto isKnown =
        component.isColourSpecified (colourId) || component.getLookAndFeel().isColourSpecified (colourId);
    return isKnown ? component.findColour (colourId) : fallback;
}

/** The same with the colour that the list has for the id as the fallback; transparent for an id that is not in
    the list. [message thread] */
[[nodiscard]] inline juce::Colour
    findColourOr (const juce::Component& component, int colourId, std::span<const ColourSetting> settings)
{
    const auto found = std::find_if (
        settings.begin(), settings.end(), [colourId] (const ColourSetting& setting) { return setting.id == colourId; });
    const auto fallback = found != settings.end() ? juce::Colour (found->argb) : juce::Colour();
    return findColourOr (component, colourId, fallback);
}

} // namespace mk::pluginCore
