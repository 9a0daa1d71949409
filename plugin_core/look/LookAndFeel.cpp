// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LookAndFeel.h"

#include "MkFonts.h"
#include "plugin_core/style/ColourIds.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/ScaleRule.h"

namespace mk::pluginCore
{
namespace
{
constexpr float initialFontHeight = 14.0f;

[[nodiscard]] juce::Font makeFont (const juce::Typeface::Ptr& typeface)
{
    return juce::FontOptions (typeface).withHeight (initialFontHeight);
}

struct FocusFrame final : public juce::FocusOutline::OutlineWindowProperties
{
    explicit FocusFrame (juce::Colour frameColour) : colour (frameColour) {}

    juce::Rectangle<int> getOutlineBounds (juce::Component& component) override { return component.getScreenBounds(); }

    void drawOutline (juce::Graphics& g, int width, int height) override
    {
        g.setColour (colour);
        g.drawRoundedRectangle (juce::Rectangle<int> (width, height).toFloat().reduced (1.0f), 4.0f, 2.0f);
    }

    const juce::Colour colour;
};
} // namespace

LookAndFeel::LookAndFeel()
    : juce::LookAndFeel_V4 (getColourScheme()),
      mkFonts (std::make_shared<const MkFonts>()),
      semiBoldFont (makeFont (mkFonts->semiBold)),
      boldFont (makeFont (mkFonts->bold)),
      monospacedFont (makeFont (mkFonts->monospaced))
{
    for (const auto& setting : getFrameworkColours())
        setColour (setting.id, juce::Colour (setting.argb));

    // For components that set no typeface of their own, such as JUCE's dialogs.
    setDefaultSansSerifTypeface (mkFonts->semiBold);
}

LookAndFeel::~LookAndFeel() = default;

const juce::Font& LookAndFeel::getFont (Face face) const noexcept
{
    switch (face)
    {
        case Face::bold: return boldFont;
        case Face::monospaced: return monospacedFont;
        case Face::semiBold: break;
    }

    return semiBoldFont;
}

juce::Font LookAndFeel::getFontFor (const juce::Component& component, Face face)
{
    const auto height = scaleRule::textHeight (component);

    if (const auto* style = dynamic_cast<const LookAndFeel*> (&component.getLookAndFeel()))
        return style->getFont (face).withHeight (height);

    return juce::FontOptions (height, face == Face::bold ? juce::Font::bold : juce::Font::plain);
}

LookAndFeel::Face LookAndFeel::getFaceForCategory (int category) noexcept
{
    switch (category)
    {
        case 0:
        case 1: return Face::bold;
        case 4: return Face::monospaced;
        default: return Face::semiBold;
    }
}

void LookAndFeel::setEditorSize (int width, int height) noexcept
{
    editorWidth = width;
    editorHeight = height;
}

juce::Typeface::Ptr LookAndFeel::getTypefaceForFont (const juce::Font& font)
{
    if (font.getTypefaceName() == juce::Font::getDefaultSansSerifFontName())
        return font.isBold() ? mkFonts->bold : mkFonts->semiBold;

    if (font.getTypefaceName() == juce::Font::getDefaultMonospacedFontName())
        return mkFonts->monospaced;

    return juce::LookAndFeel_V4::getTypefaceForFont (font);
}

std::unique_ptr<juce::FocusOutline> LookAndFeel::createFocusOutlineForComponent (juce::Component& component)
{
    return std::make_unique<juce::FocusOutline> (
        std::make_unique<FocusFrame> (component.findColour (colourId::focusOutline)));
}

} // namespace mk::pluginCore
