// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginLookAndFeel.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/MouseFade.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"
#include "plugin_core/style/icons/Icon.h"

namespace mk::orlo
{
namespace
{
namespace scaleRule = pluginCore::scaleRule;
namespace styleProperty = pluginCore::styleProperty;

constexpr float outlineWidth = 2.0f;
constexpr float hoverContrast = 0.05f;
constexpr float menuItemShare = 0.85f;
constexpr float textShareOfHeight = 0.8f;

// In heights of the box.
constexpr float arrowColumn = 0.8f;
constexpr float arrowShare = 0.45f;
constexpr float textMargin = 0.2f;
} // namespace

void PluginLookAndFeel::drawComboBox (juce::Graphics& g,
                                      int width,
                                      int height,
                                      bool isButtonDown,
                                      int,
                                      int,
                                      int,
                                      int,
                                      juce::ComboBox& box)
{
    const auto area = juce::Rectangle<int> (width, height);
    const auto radius = scaleRule::cornerRadius (box);
    const auto alpha = box.isEnabled() ? 1.0f : 0.5f;
    const auto hover = isButtonDown ? 1.0f : pluginCore::mouseFade::hoverFactor (box);
    const auto face = pluginCore::raised (box.findColour (juce::ComboBox::backgroundColourId));
    const auto frame =
        box.hasKeyboardFocus (true) ? juce::ComboBox::focusedOutlineColourId : juce::ComboBox::outlineColourId;

    g.setColour (face.contrasting (hoverContrast * hover).withMultipliedAlpha (alpha));
    g.fillRoundedRectangle (area.toFloat(), radius);
    g.setColour (box.findColour (frame).withMultipliedAlpha (alpha));
    g.drawRoundedRectangle (area.toFloat().reduced (outlineWidth * 0.5f), radius, outlineWidth);

    const auto side = juce::roundToInt (float (height) * arrowShare);
    const auto column = area.withLeft (width - juce::roundToInt (float (height) * arrowColumn));
    pluginCore::drawIcon (g,
                          pluginCore::Icon::arrowDown,
                          column.withSizeKeepingCentre (side, side).toFloat(),
                          box.findColour (juce::ComboBox::arrowColourId).withMultipliedAlpha (alpha));
}

juce::Font PluginLookAndFeel::getComboBoxFont (juce::ComboBox& box)
{
    const auto height = std::min (scaleRule::textHeight (box), float (box.getHeight()) * textShareOfHeight);
    return controlFont.withHeight (std::max (height, 1.0f));
}

void PluginLookAndFeel::positionComboBoxText (juce::ComboBox& box, juce::Label& label)
{
    const auto height = float (box.getHeight());
    auto area = box.getLocalBounds();
    area.removeFromLeft (juce::roundToInt (height * textMargin));
    area.removeFromRight (juce::roundToInt (height * arrowColumn));
    label.setBounds (area);
    label.setBorderSize (juce::BorderSize<int> (0));
    label.setFont (getComboBoxFont (box));
}

juce::PopupMenu::Options PluginLookAndFeel::getOptionsForComboBoxPopupMenu (juce::ComboBox& box, juce::Label& label)
{
    const int columns = box.getProperties().getWithDefault (styleProperty::numCol, 1);
    return pluginCore::LookAndFeel::getOptionsForComboBoxPopupMenu (box, label)
        .withMinimumNumColumns (columns)
        .withMaximumNumColumns (std::max (columns, 1))
        .withStandardItemHeight (juce::roundToInt (float (box.getHeight()) * menuItemShare));
}

} // namespace mk::orlo
