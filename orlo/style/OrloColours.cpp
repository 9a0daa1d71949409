// SPDX-License-Identifier: AGPL-3.0-or-later
#include "OrloColours.h"

namespace mk::orlo
{
namespace
{
namespace palette = pluginCore::palette;

constexpr pluginCore::ColourSetting orloColours[] {
    { colourId::controlBackground, palette::control },
    { colourId::sideBarBackground, palette::panel },
    { colourId::buttonBarFrame, palette::outline },
    { colourId::barButtonOutline, palette::outline },
    { colourId::rulerBackground, palette::strip },
    { colourId::keyboardBackground, palette::strip },
    { colourId::keyboardWhiteKey, 0xFFBBBBBB },
    { colourId::keyboardBlackKey, palette::strip },
    { colourId::keyboardSeparator, palette::strip },
    { colourId::keyboardHighlight, 0xFFFFFFFF },
    { colourId::keyboardLabel, 0xFF4D4D4D },
    { colourId::panelBackground, palette::window },
    { colourId::panelHeadingText, palette::text },
    { colourId::panelLabelText, palette::softText },
    { colourId::readoutBackground, 0xE6151515 },
    { colourId::readoutText, palette::brightText },
    { colourId::arrowsBackground, 0x00000000 },
    { colourId::cornerGrip, 0x80808080 },

    { juce::TextButton::buttonColourId, palette::control },
    { juce::TextButton::buttonOnColourId, palette::accentDeep },
    { juce::TextButton::textColourOffId, palette::softText },
    { juce::TextButton::textColourOnId, palette::brightText },

    { juce::ComboBox::backgroundColourId, palette::control },
    { juce::ComboBox::outlineColourId, palette::outline },
    { juce::ComboBox::focusedOutlineColourId, palette::accent },
    { juce::ComboBox::arrowColourId, palette::softText },
    { juce::ComboBox::textColourId, palette::text },

    { juce::PopupMenu::backgroundColourId, palette::menu },
    { juce::PopupMenu::textColourId, palette::text },
    { juce::PopupMenu::headerTextColourId, palette::outline },
    { juce::PopupMenu::highlightedBackgroundColourId, palette::highlight },
    { juce::PopupMenu::highlightedTextColourId, palette::brightText },

    { juce::Slider::thumbColourId, palette::accentFill },
    { juce::Slider::trackColourId, palette::accentMid },
    { juce::Slider::backgroundColourId, palette::control },
    { juce::Slider::textBoxTextColourId, palette::text },
    { juce::Slider::textBoxBackgroundColourId, 0x00000000 },
    { juce::Slider::textBoxHighlightColourId, palette::accentDeep },
    { juce::Slider::textBoxOutlineColourId, 0x00000000 },
    { juce::BubbleComponent::backgroundColourId, palette::menu },
    { juce::BubbleComponent::outlineColourId, palette::outline },
};
} // namespace

std::span<const pluginCore::ColourSetting> getOrloColours() noexcept { return orloColours; }

} // namespace mk::orlo
