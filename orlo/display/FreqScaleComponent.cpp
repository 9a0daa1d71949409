// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FreqScaleComponent.h"

#include "StripText.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
const juce::Colour textColour { 0xffd3d3d3 };
} // namespace

FreqScaleComponent::FreqScaleComponent (FrequencyScale& scaleToShow) : scale (scaleToShow), font (juce::FontOptions {})
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    setTitle (juce::translate ("Frequency ruler"));
    setOpaque (true);
    scale.addListener (this);
}

FreqScaleComponent::~FreqScaleComponent()
{
    cancelPendingUpdate();
    scale.removeListener (this);
}

//==============================================================================
void FreqScaleComponent::updateFont() { font = makeStripFont (*this); }

void FreqScaleComponent::rebuild()
{
    ticks = buildRulerTicks (scale.getMinFrequency(), scale.getMaxFrequency());
    labels = getHeight() > 0 ? placeRulerLabels (ticks, scale, getWidth(), getHeight(), font.getHeight())
                             : std::vector<RulerLabel> {};
}

void FreqScaleComponent::paint (juce::Graphics& g)
{
    g.fillAll (pluginCore::findColourOr (*this, colourId::rulerBackground, getOrloColours()));
    g.setColour (textColour);
    g.setFont (font);

    for (const auto& label : labels)
        g.drawFittedText (label.text, label.area, juce::Justification::centredLeft, 1, narrowestTextScale);
}

//==============================================================================
void FreqScaleComponent::resized()
{
    updateFont();
    rebuild();
}

void FreqScaleComponent::lookAndFeelChanged()
{
    updateFont();
    rebuild();
    triggerAsyncUpdate();
}

void FreqScaleComponent::parentHierarchyChanged()
{
    // The text size and the look and feel depend on the editor.
    lookAndFeelChanged();
}

void FreqScaleComponent::colourChanged() { repaint(); }

void FreqScaleComponent::frequencyScaleChanged (FrequencyScale&)
{
    rebuild();
    triggerAsyncUpdate();
}

void FreqScaleComponent::handleAsyncUpdate() { repaint(); }

std::unique_ptr<juce::AccessibilityHandler> FreqScaleComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::image);
}

} // namespace mk::orlo
