// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Palette.h"

#include <algorithm>

namespace mk::pluginCore
{

/** The colour that the component or its look and feel has for the id, so that a component can be shown with any
    look and feel. If neither has one, the colour that the list has for the id; transparent for an id that is not
    in the list either. [message thread] */
[[nodiscard]] inline juce::Colour
    findColourOr (const juce::Component& component, int colourId, std::span<const ColourSetting> settings)
{
    if (component.isColourSpecified (colourId) || component.getLookAndFeel().isColourSpecified (colourId))
        return component.findColour (colourId);

    const auto found = std::find_if (
        settings.begin(), settings.end(), [colourId] (const ColourSetting& setting) { return setting.id == colourId; });
    return found != settings.end() ? juce::Colour (found->argb) : juce::Colour();
}

} // namespace mk::pluginCore
