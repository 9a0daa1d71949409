// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ColourMapPreviewComponent.h"

#include "orlo/analysis/ColourMap.h"
#include "orlo/parameters/ColourMapNames.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/controls/ComponentIgnoringRightButton.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
constexpr float nameShare = 0.45f;
constexpr float edge = 0.5f;

// The height of a name, as a share of the component's height, and its distance from the colours.
constexpr float nameHeightShare = 0.56f;
constexpr float nameGapShare = 0.2f;

[[nodiscard]] int toLegalIndex (int index)
{
    return juce::isPositiveAndBelow (index, ColourMapPreviewComponent::getNumMaps()) ? index : 0;
}
} // namespace

ColourMapPreviewComponent::ColourMapPreviewComponent (int index, bool shouldShowName)
    : showName (shouldShowName), mapIndex (toLegalIndex (index))
{
    label.setJustificationType (juce::Justification::centredLeft);
    label.getProperties().set (pluginCore::styleProperty::cat, pluginCore::scaleRule::defaultCategory);
    label.setInterceptsMouseClicks (false, false);
    label.setAccessible (false);

    if (showName)
        addAndMakeVisible (label);

    rebuild();
}

int ColourMapPreviewComponent::getNumMaps() noexcept { return int (colourMapNames.size()); }
juce::String ColourMapPreviewComponent::getMapName (int index) { return colourMapNames[size_t (toLegalIndex (index))]; }

void ColourMapPreviewComponent::setMapIndex (int newIndex)
{
    newIndex = toLegalIndex (newIndex);

    if (newIndex == mapIndex)
        return;

    mapIndex = newIndex;
    rebuild();
    repaint();
}

void ColourMapPreviewComponent::rebuild()
{
    const auto name = getMapName (mapIndex);
    label.setText (name, juce::dontSendNotification);
    setTitle (name);
    gradientFill.setGradient (ColourMap::makeGradient (unsigned (mapIndex)));
    placeGradient();
}

void ColourMapPreviewComponent::placeGradient()
{
    gradientFill.gradient->point1 = { gradientArea.getX(), 0.0f };
    gradientFill.gradient->point2 = { gradientArea.getRight(), 0.0f };
}

void ColourMapPreviewComponent::resized()
{
    auto area = getLocalBounds();

    if (showName)
    {
        const auto nameArea = area.removeFromRight (juce::roundToInt (float (getWidth()) * nameShare));
        const auto nameHeight = juce::roundToInt (float (getHeight()) * nameHeightShare);
        label.setBounds (nameArea.withSizeKeepingCentre (nameArea.getWidth(), nameHeight));
        label.setBorderSize ({ 0, juce::roundToInt (float (getHeight()) * nameGapShare), 0, 0 });
        gradientArea = area.toFloat();
    }
    else
    {
        gradientArea = area.toFloat().reduced (edge);
    }

    placeGradient();
}

void ColourMapPreviewComponent::paint (juce::Graphics& g)
{
    const auto radius = pluginCore::scaleRule::cornerRadius (*this);
    const auto width = std::max (float (getWidth()) - 1.0f, 0.0f);
    const auto height = std::max (float (getHeight()) - 1.0f, 0.0f);

    g.setColour (findColour (showName ? int (juce::PopupMenu::backgroundColourId) : int (colourId::controlBackground)));
    g.fillRoundedRectangle (edge, edge, width, height, radius);

    if (gradientArea.isEmpty())
        return;

    g.setFillType (gradientFill);
    g.fillRoundedRectangle (gradientArea, radius);
}

void ColourMapPreviewComponent::mouseDown (const juce::MouseEvent& event)
{
    if (onClick != nullptr && pluginCore::isEditingClick (event.mods))
        onClick();
}

std::unique_ptr<juce::AccessibilityHandler> ColourMapPreviewComponent::createAccessibilityHandler()
{
    if (onClick == nullptr)
        return std::make_unique<juce::AccessibilityHandler> (*this, juce::AccessibilityRole::image);

    return std::make_unique<juce::AccessibilityHandler> (
        *this,
        juce::AccessibilityRole::button,
        juce::AccessibilityActions().addAction (juce::AccessibilityActionType::press, [this] { onClick(); }));
}

} // namespace mk::orlo
