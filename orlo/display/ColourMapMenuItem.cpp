// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColourMapMenuItem.h"

#include "plugin_core/style/ScaleRule.h"

namespace mk::orlo
{
namespace
{
namespace scaleRule = pluginCore::scaleRule;

constexpr float heightPerEditorWidth = 0.027502751f; // 50 pixels at the design's width
constexpr int heightWithoutEditor = 50;
constexpr int widthPerHeight = 7;
constexpr float cornerShare = 0.15f;
constexpr juce::uint8 highlightAlpha = 0x0D;
} // namespace

ColourMapMenuItem::ColourMapMenuItem (int mapIndex, juce::Component& boxToServe)
    : preview (mapIndex, true), box (&boxToServe)
{
    preview.setInterceptsMouseClicks (false, false);
    preview.setAccessible (false);
    addAndMakeVisible (preview);
}

juce::Rectangle<int> ColourMapMenuItem::getIdealBounds (std::optional<int> editorWidth) noexcept
{
    const auto height =
        editorWidth.has_value() ? int (float (*editorWidth) * heightPerEditorWidth) : heightWithoutEditor;
    return { height * widthPerHeight, height };
}

void ColourMapMenuItem::getIdealSize (int& idealWidth, int& idealHeight)
{
    auto editorWidth = scaleRule::editorWidthAbove (*this);

    if (! editorWidth.has_value() && box != nullptr)
        editorWidth = scaleRule::editorWidthAbove (*box);

    const auto bounds = getIdealBounds (editorWidth);
    idealWidth = bounds.getWidth();
    idealHeight = bounds.getHeight();
}

void ColourMapMenuItem::resized() { preview.setBounds (getLocalBounds()); }

void ColourMapMenuItem::paintOverChildren (juce::Graphics& g)
{
    if (! isItemHighlighted())
        return;

    const auto area = getLocalBounds().toFloat();
    const auto corner = float (int (area.getHeight() * cornerShare));
    g.setColour (findColour (juce::PopupMenu::highlightedTextColourId).withAlpha (highlightAlpha));
    g.fillRoundedRectangle (area, corner);

    // On bright maps the highlight alone is hardly visible, and keyboard users need to see which row it is on.
    g.setColour (findColour (juce::ComboBox::focusedOutlineColourId));
    g.drawRoundedRectangle (area.reduced (1.0f), corner, 2.0f);
}

void ColourMapMenuItem::parentHierarchyChanged()
{
    const auto* row = getItem();
    const auto isChosen = row != nullptr && row->isTicked;
    preview.getLabel().setColour (
        juce::Label::textColourId,
        findColour (isChosen ? int (juce::ComboBox::focusedOutlineColourId) : int (juce::PopupMenu::textColourId)));
}

std::unique_ptr<juce::AccessibilityHandler> ColourMapMenuItem::createAccessibilityHandler()
{
    // The menu's own row carries the name for screen readers.
    return createIgnoredAccessibilityHandler (*this);
}

} // namespace mk::orlo
