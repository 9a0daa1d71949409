// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FreqReadoutPopup.h"

#include "StripText.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

#include <juce_audio_processors/juce_audio_processors.h>

namespace mk::orlo
{
FreqReadoutPopup::FreqReadoutPopup() : font (juce::FontOptions {})
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    setInterceptsMouseClicks (false, false);
}

int FreqReadoutPopup::getTagHeight() const
{
    const auto* const editor = findParentComponentOfClass<juce::AudioProcessorEditor>();
    return getReadoutHeight (editor != nullptr ? editor->getHeight() : 0);
}

void FreqReadoutPopup::show (const juce::MouseEvent& event,
                             const juce::String& newText,
                             bool followCursor,
                             juce::Rectangle<int> view)
{
    auto* const container = getParentComponent();
    jassert (container != nullptr);

    // The font depends on the height, and the width on the font.
    const auto height = getTagHeight();

    if (getHeight() != height)
        setSize (height, height);

    updateFont();
    const auto textWidth = juce::GlyphArrangement::getStringWidthInt (font, newText);
    const auto placement =
        followCursor ? placeReadoutAtCursor (
            event.getEventRelativeTo (container).getPosition(), textWidth, height, container->getLocalBounds())
                     : placeReadoutAtRest (view, textWidth, height, container->getLocalBounds());

    text = newText;
    justification = placement.justification;
    setTitle (text.trim());
    setBounds (placement.bounds);
    setVisible (true);
    toFront (false);
    repaint();
}

//==============================================================================
void FreqReadoutPopup::paint (juce::Graphics& g)
{
    if (text.isEmpty())
        return;

    const auto outline = juce::Rectangle {
        0.5f, 0.5f, juce::jmax (float (getWidth()) - 1.0f, 0.0f), juce::jmax (float (getHeight()) - 1.0f, 0.0f)
    };

    g.setColour (pluginCore::findColourOr (*this, colourId::readoutBackground, getOrloColours()));
    g.fillRoundedRectangle (outline, float (int (float (getHeight()) * 0.2f)));

    g.setColour (pluginCore::findColourOr (*this, colourId::readoutText, getOrloColours()));
    g.setFont (font);
    g.drawFittedText (text, getReadoutTextArea (getLocalBounds()), justification, 1, narrowestTextScale);
}

void FreqReadoutPopup::updateFont()
{
    font = findScaleFont (*this).withHeight (pluginCore::scaleRule::legibleTextHeight (*this));
}

void FreqReadoutPopup::resized() { updateFont(); }

void FreqReadoutPopup::lookAndFeelChanged()
{
    updateFont();
    repaint();
}

void FreqReadoutPopup::colourChanged() { repaint(); }

std::unique_ptr<juce::AccessibilityHandler> FreqReadoutPopup::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::staticText);
}

} // namespace mk::orlo
