// SPDX-License-Identifier: AGPL-3.0-or-later
#include "NoticeLine.h"

#include "StripText.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{

NoticeLine::NoticeLine()
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    setWantsKeyboardFocus (false);
    setMouseClickGrabsKeyboardFocus (false);
}

void NoticeLine::show (const juce::String& newText)
{
    text = newText;
    setTitle (text);
    setVisible (text.isNotEmpty());

    if (text.isEmpty())
        return;

    auto* const parent = getParentComponent();
    jassert (parent != nullptr);
    const auto height = juce::roundToInt (2.0f * pluginCore::scaleRule::legibleTextHeight (*parent));
    setBounds (parent->getLocalBounds().removeFromBottom (juce::jmin (height, parent->getHeight())));
    toFront (false);
    repaint();
    juce::AccessibilityHandler::postAnnouncement (text, juce::AccessibilityHandler::AnnouncementPriority::high);
}

void NoticeLine::paint (juce::Graphics& g)
{
    g.fillAll (pluginCore::findColourOr (*this, colourId::readoutBackground, getOrloColours()));
    g.setColour (pluginCore::findColourOr (*this, colourId::readoutText, getOrloColours()));
    g.setFont (findScaleFont (*this).withHeight (0.5f * float (getHeight())));
    g.drawFittedText (
        text, getLocalBounds().reduced (getHeight() / 3, 0), juce::Justification::centredLeft, 1, narrowestTextScale);
}

void NoticeLine::mouseDown (const juce::MouseEvent&) { show ({}); }

std::unique_ptr<juce::AccessibilityHandler> NoticeLine::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::staticText);
}

} // namespace mk::orlo
