// SPDX-License-Identifier: AGPL-3.0-or-later
#include "KeyboardScaleComponent.h"

#include "PixelGrid.h"
#include "StripText.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/ColourLookup.h"
#include "plugin_core/style/StyleProperties.h"

#include <algorithm>

namespace mk::orlo
{
namespace
{
[[nodiscard]] juce::Colour findKeyboardColour (const juce::Component& keyboard, int id)
{
    return pluginCore::findColourOr (keyboard, id, getOrloColours());
}
} // namespace

KeyboardScaleComponent::KeyboardScaleComponent (FrequencyScale& scaleToShow)
    : scale (scaleToShow), font (juce::FontOptions {})
{
    getProperties().set (pluginCore::styleProperty::cat, displaySizeClass);
    setTitle (juce::translate ("Piano keyboard"));
    setOpaque (true);
    scale.addListener (this);
}

KeyboardScaleComponent::~KeyboardScaleComponent()
{
    cancelPendingUpdate();
    scale.removeListener (this);
}

//==============================================================================
void KeyboardScaleComponent::updateFont() { font = makeStripFont (*this); }

void KeyboardScaleComponent::rebuild() { keys = buildKeyboardKeys (scale, getWidth(), getHeight(), tuning); }

void KeyboardScaleComponent::setTuning (const notes::Tuning& newTuning)
{
    if (newTuning == tuning)
        return;

    tuning = newTuning;
    rebuild();
    repaint();
}

void KeyboardScaleComponent::setHighlightedNote (int note)
{
    if (note == highlightedNote)
        return;

    repaintKey (highlightedNote);
    highlightedNote = note;
    repaintKey (highlightedNote);
}

void KeyboardScaleComponent::repaintKey (int note)
{
    const auto key = std::find_if (
        keys.begin(), keys.end(), [note] (const KeyboardKey& candidate) { return candidate.noteNumber == note; });

    if (key != keys.end())
        repaint (key->shape.getBounds());
}

//==============================================================================
void KeyboardScaleComponent::paint (juce::Graphics& g)
{
    g.fillAll (findKeyboardColour (*this, colourId::keyboardBackground));

    // Black keys are painted over the white ones.
    const PixelGrid grid { g.getInternalContext().getPhysicalPixelScaleFactor() };
    paintKeys (g, grid, false);
    paintKeys (g, grid, true);
    paintLabels (g);
}

void KeyboardScaleComponent::paintKeys (juce::Graphics& g, const PixelGrid& grid, bool black) const
{
    juce::RectangleList<float> plain, highlighted, separators;

    for (const auto& key : keys)
    {
        if (key.isBlack != black)
            continue;

        const auto isHighlighted = key.noteNumber == highlightedNote;

        // A white key is highlighted as a whole, a black one inside its edge.
        auto& list = isHighlighted && ! black ? highlighted : plain;

        for (const auto& part : key.shape)
            list.addWithoutMerging (grid.snap (part));

        if (isHighlighted && black)
            highlighted.addWithoutMerging (grid.snap (getBlackKeyHighlight (key, getWidth())));

        separators.addWithoutMerging (grid.snapLine (getKeySeparator (key, getWidth())));
    }

    const auto fill = [this, &g] (int id, const juce::RectangleList<float>& list)
    {
        g.setColour (findKeyboardColour (*this, id));
        g.fillRectList (list);
    };

    fill (black ? colourId::keyboardBlackKey : colourId::keyboardWhiteKey, plain);
    fill (colourId::keyboardHighlight, highlighted);
    fill (colourId::keyboardSeparator, separators);
}

void KeyboardScaleComponent::paintLabels (juce::Graphics& g) const
{
    g.setFont (font);
    g.setColour (findKeyboardColour (*this, colourId::keyboardLabel));

    for (const auto& key : keys)
        if (isLabelShown (key, font.getHeight()))
            g.drawFittedText (key.label, key.labelArea, juce::Justification::centredLeft, 1, narrowestTextScale);
}

//==============================================================================
void KeyboardScaleComponent::resized()
{
    updateFont();
    rebuild();
}

void KeyboardScaleComponent::lookAndFeelChanged()
{
    updateFont();
    rebuild();
    triggerAsyncUpdate();
}

void KeyboardScaleComponent::parentHierarchyChanged()
{
    // The text size and the look and feel depend on the editor.
    lookAndFeelChanged();
}

void KeyboardScaleComponent::colourChanged() { repaint(); }

void KeyboardScaleComponent::mouseMove (const juce::MouseEvent& event)
{
    if (onKeyHovered == nullptr || getHeight() < 1)
        return;

    const auto hz = scale.frequencyForPosition (1.0f - event.position.y / float (getHeight()));

    // A copy, since the callback may change the scale and thereby rebuild the keys.
    if (const auto* const key = findKeyForFrequency (keys, hz))
        onKeyHovered (KeyboardKey (*key));
}

//==============================================================================
void KeyboardScaleComponent::frequencyScaleChanged (FrequencyScale&)
{
    rebuild();
    triggerAsyncUpdate();
}

void KeyboardScaleComponent::handleAsyncUpdate() { repaint(); }

std::unique_ptr<juce::AccessibilityHandler> KeyboardScaleComponent::createAccessibilityHandler()
{
    return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::image);
}

} // namespace mk::orlo
