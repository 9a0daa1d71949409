// SPDX-License-Identifier: AGPL-3.0-or-later
#include "DisplayTextComponent.h"

#include "plugin_core/look/ColourIds.h"

namespace mk::pluginCore
{
namespace
{
constexpr int margin = 6;
constexpr float fontPoints = 12.0f;

[[nodiscard]] juce::Font makeFont()
{
    return juce::FontOptions ("arial", "Regular", fontPoints).withPointHeight (fontPoints);
}
} // namespace

DisplayTextComponent::DisplayTextComponent()
{
    textEditor.setMultiLine (true);
    textEditor.setReadOnly (true);
    textEditor.setCaretVisible (false);
    textEditor.setScrollbarsShown (true);

    // The frame is drawn around the margin, and keys are handled here.
    for (const auto id : { juce::TextEditor::backgroundColourId,
                           juce::TextEditor::outlineColourId,
                           juce::TextEditor::focusedOutlineColourId,
                           juce::TextEditor::shadowColourId })
        textEditor.setColour (id, juce::Colours::transparentBlack);

    addAndMakeVisible (textEditor);
    applyStyle();
}

void DisplayTextComponent::setText (const juce::String& text)
{
    textEditor.setText (text, false);
    textEditor.moveCaretToTop (false);
}

juce::Viewport* DisplayTextComponent::findViewport() const
{
    for (auto* const child : textEditor.getChildren())
        if (auto* const viewport = dynamic_cast<juce::Viewport*> (child))
            return viewport;

    return nullptr;
}

int DisplayTextComponent::getScrollPosition() const
{
    const auto* const viewport = findViewport();
    return viewport != nullptr ? viewport->getViewPositionY() : 0;
}

void DisplayTextComponent::paint (juce::Graphics& g)
{
    g.fillAll (findColour (colourId::textViewBackground));
    g.setColour (findColour (colourId::textViewOutline));
    g.drawRect (getLocalBounds());
}

void DisplayTextComponent::resized() { textEditor.setBounds (getLocalBounds().reduced (margin)); }

void DisplayTextComponent::lookAndFeelChanged() { applyStyle(); }

void DisplayTextComponent::colourChanged() { applyStyle(); }

void DisplayTextComponent::applyStyle()
{
    const auto isSpecified =
        isColourSpecified (colourId::textViewText) || getLookAndFeel().isColourSpecified (colourId::textViewText);
    const auto colour =
        isSpecified ? findColour (colourId::textViewText) : textEditor.findColour (juce::TextEditor::textColourId);

    textEditor.applyFontToAllText (makeFont());
    textEditor.applyColourToAllText (colour);
    repaint();
}

bool DisplayTextComponent::keyPressed (const juce::KeyPress& key)
{
    auto* const viewport = findViewport();
    return viewport != nullptr && viewport->getVerticalScrollBar().isVisible()
           && viewport->getVerticalScrollBar().keyPressed (key);
}

} // namespace mk::pluginCore
