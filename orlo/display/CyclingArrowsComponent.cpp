// SPDX-License-Identifier: AGPL-3.0-or-later
#include "CyclingArrowsComponent.h"

#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/icons/Icon.h"

namespace mk::orlo
{
namespace
{
constexpr float share = 0.5f;

[[nodiscard]] juce::Path makeArrow (pluginCore::Icon icon)
{
    return pluginCore::makeIconPath (icon, pluginCore::iconGridSize);
}
} // namespace

CyclingArrowsComponent::CyclingArrowsComponent()
    : previousButton (juce::translate ("Previous colour palette"), makeArrow (pluginCore::Icon::arrowLeft)),
      nextButton (juce::translate ("Next colour palette"), makeArrow (pluginCore::Icon::arrowRight))
{
    previousButton.onClick = [this] { juce::NullCheckedInvocation::invoke (onPrevious); };
    nextButton.onClick = [this] { juce::NullCheckedInvocation::invoke (onNext); };

    for (auto* button : { &previousButton, &nextButton })
    {
        button->setTitle (button->getName());
        button->setTooltip (button->getName());
        addAndMakeVisible (button);
    }
}

void CyclingArrowsComponent::paint (juce::Graphics& g)
{
    g.fillAll (pluginCore::findColourOr (*this, colourId::arrowsBackground, getOrloColours()));
}

void CyclingArrowsComponent::resized()
{
    const auto width = std::min (getWidth(), int (float (getWidth()) * share));
    previousButton.setBounds (0, 0, width, getHeight());
    nextButton.setBounds (getWidth() - width, 0, width, getHeight());
}

} // namespace mk::orlo
