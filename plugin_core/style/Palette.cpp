// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Palette.h"

#include "ColourIds.h"

namespace mk::pluginCore
{
namespace
{
constexpr juce::uint32 transparent = 0x00000000;

constexpr ColourSetting frameworkColours[] {
    { colourId::overlayBackground, palette::panel },
    { colourId::overlayText, palette::text },
    { colourId::dialogBackground, palette::panel },
    { colourId::dialogText, palette::text },
    { colourId::textViewBackground, palette::well },
    { colourId::textViewOutline, palette::text },
    { colourId::textViewText, palette::text },
    { colourId::tooltipBackground, palette::panel },
    { colourId::tooltipText, palette::softText },
    { colourId::tooltipBoldText, palette::brightText },
    { colourId::tooltipDefaultText, palette::quietText },
    { colourId::tooltipOutline, palette::hairline },
    { colourId::ground, palette::well },
    { colourId::focusOutline, palette::accent },
    { colourId::linkText, palette::accent },
    { colourId::presetsBarBackground, palette::panel },
    { colourId::presetsBarText, palette::text },
    { colourId::headerBackground, palette::panel },
    { colourId::headerText, palette::text },
    { colourId::headerOutline, palette::hairline },
    { colourId::fileListBackground, palette::panel },
    { colourId::fileListSecondaryText, palette::quietText },
    { colourId::pathButtonBackground, transparent },
    { colourId::pathButtonBackgroundOver, 0x0DFFFFFF },
    { colourId::pathButtonBackgroundDown, 0x1AFFFFFF },
    { colourId::pathButtonPath, palette::softText },
    { colourId::pathButtonPathOver, palette::text },
    { colourId::pathButtonPathDown, palette::accent },
    { colourId::pathButtonFocusOutline, palette::accent },

    { juce::DrawableButton::backgroundColourId, transparent },
    { juce::DrawableButton::backgroundOnColourId, transparent },
    { juce::DrawableButton::textColourOnId, palette::text },

    { juce::ScrollBar::thumbColourId, palette::faint },
    { juce::CaretComponent::caretColourId, palette::accent },
    { juce::HyperlinkButton::textColourId, palette::accent },
    { juce::TextEditor::highlightColourId, palette::accentDeep },
    { juce::TextEditor::highlightedTextColourId, palette::brightText },
    { juce::TextEditor::focusedOutlineColourId, palette::accent },
    { juce::Label::outlineWhenEditingColourId, palette::accent },
    { juce::ListBox::backgroundColourId, palette::well },
    { juce::DirectoryContentsDisplayComponent::highlightColourId, palette::highlight },
    { juce::DirectoryContentsDisplayComponent::textColourId, palette::text },
    { juce::DirectoryContentsDisplayComponent::highlightedTextColourId, palette::brightText },
};
} // namespace

std::span<const ColourSetting> getFrameworkColours() noexcept { return frameworkColours; }

juce::LookAndFeel_V4::ColourScheme getColourScheme()
{
    return { palette::window,     palette::control, palette::menu,       palette::outline, palette::text,
             palette::accentFill, palette::text,    palette::accentDeep, palette::text };
}

juce::Colour raised (juce::Colour colour) noexcept
{
    const auto channel = [] (juce::uint8 c)
    { return juce::uint8 (juce::roundToInt (255.0f - 0.9433963f * (255.0f - float (c)))); };

    return { channel (colour.getRed()), channel (colour.getGreen()), channel (colour.getBlue()), colour.getAlpha() };
}

} // namespace mk::pluginCore
