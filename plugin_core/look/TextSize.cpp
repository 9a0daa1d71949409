// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TextSize.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::pluginCore
{
namespace
{
constexpr float smallestLegibleHeight = 15.0f;

[[nodiscard]] float getDesignHeight (int sizeClass) noexcept
{
    switch (sizeClass)
    {
        case 0: return 55.0f;
        case 1: return 40.0f;
        case 2:
        case 3: return 33.0f;
        case 4: return 25.0f;
        default: return 36.0f;
    }
}
} // namespace

float getTextHeight (const juce::Component& component)
{
    const auto& properties = component.getProperties();
    auto height = getDesignHeight (properties.getWithDefault ("cat", 2));

    if (const auto* editor = component.findParentComponentOfClass<juce::AudioProcessorEditor>())
        height *= float (editor->getWidth()) / designWidth;

    return height * float (properties.getWithDefault ("fontScale", 1.0));
}

float getLegibleTextHeight (const juce::Component& component)
{
    return juce::jmin (juce::jmax (getTextHeight (component), smallestLegibleHeight), float (component.getHeight()));
}

juce::Colour findColourOr (const juce::Component& component, int colourId, juce::Colour fallback)
{
    const auto isKnown =
        component.isColourSpecified (colourId) || component.getLookAndFeel().isColourSpecified (colourId);
    return isKnown ? component.findColour (colourId) : fallback;
}

} // namespace mk::pluginCore
