// SPDX-License-Identifier: AGPL-3.0-or-later
#include "DisplayTextComponent.h"

#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/Palette.h"

namespace mk::pluginCore
{
namespace
{
constexpr int margin = 6;
constexpr float fontPoints = 12.0f;

[[nodiscard]] juce::String limited (const juce::String& text)
{
    juce::String result;
    result.preallocateBytes (size_t (juce::jmin (text.length(), DisplayTextComponent::maxCharacters)) * 2);
    auto numCharacters = 0;
    auto wordLength = 0;

    for (auto next = text.getCharPointer(); ! next.isEmpty(); ++next)
    {
        if (++numCharacters > DisplayTextComponent::maxCharacters)
            return result + "...";

        wordLength = next.isWhitespace() ? 0 : wordLength + 1;

        if (wordLength > DisplayTextComponent::maxWordLength)
        {
            result << "\n";
            wordLength = 1;
        }

        result << juce::String::charToString (*next);
    }

    return result;
}

/** Arial, or the look and feel's own typeface on a system without Arial, where the font would have no typeface. */
[[nodiscard]] juce::Font makeFont()
{
    const juce::Font arial (juce::FontOptions ("arial", "Regular", fontPoints));
    const auto isThere = juce::Typeface::createSystemTypefaceFor (arial) != nullptr;
    return isThere ? arial.withPointHeight (fontPoints) : juce::FontOptions().withPointHeight (fontPoints);
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
    textEditor.setText (limited (text), false);
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
    g.fillAll (findColourOr (*this, colourId::textViewBackground, getFrameworkColours()));
    g.setColour (findColourOr (*this, colourId::textViewOutline, getFrameworkColours()));
    g.drawRect (getLocalBounds());
}

void DisplayTextComponent::resized() { textEditor.setBounds (getLocalBounds().reduced (margin)); }

void DisplayTextComponent::lookAndFeelChanged() { applyStyle(); }

void DisplayTextComponent::colourChanged() { applyStyle(); }

void DisplayTextComponent::applyStyle()
{
    const auto colour = findColourOr (*this, colourId::textViewText, getFrameworkColours());
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
