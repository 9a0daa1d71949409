// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MyCaretComponent.h"

#include <algorithm>

namespace mk::pluginCore
{

LookAndFeel::MyCaretComponent::MyCaretComponent (juce::Component* keyFocusOwner, int widthInPixels)
    : juce::CaretComponent (keyFocusOwner), caretWidth (std::max (0, widthInPixels))
{
}

void LookAndFeel::MyCaretComponent::paint (juce::Graphics& g)
{
    g.setColour (findColour (caretColourId, true));
    g.fillRoundedRectangle (getLocalBounds().toFloat(), float (caretWidth) * 0.5f);
}

void LookAndFeel::MyCaretComponent::setCaretPosition (const juce::Rectangle<int>& characterArea)
{
    juce::CaretComponent::setCaretPosition (characterArea);
    setBounds (characterArea.withWidth (caretWidth));
}

} // namespace mk::pluginCore
