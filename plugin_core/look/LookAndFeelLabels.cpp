// SPDX-License-Identifier: AGPL-3.0-or-later
#include "LookAndFeel.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

#include <algorithm>

namespace mk::pluginCore
{
namespace
{
constexpr float disabledTextAlpha = 0.4f;

[[nodiscard]] bool readsUpwards (const juce::Label& label) { return label.getProperties()[styleProperty::vertical]; }

/** The area of a label's text in the direction of reading: rotated if the text reads upwards. */
[[nodiscard]] juce::Rectangle<int> textArea (LookAndFeel& style, juce::Label& label)
{
    const auto bounds = label.getLocalBounds();
    return style.getLabelBorderSize (label).subtractedFrom (
        readsUpwards (label) ? bounds.withSize (bounds.getHeight(), bounds.getWidth()) : bounds);
}

[[nodiscard]] bool isStyled (const juce::Label& label)
{
    const auto& properties = label.getProperties();

    for (const auto* name :
         { &styleProperty::cat, &styleProperty::fontScale, &styleProperty::bold, &styleProperty::vertical })
        if (properties.contains (*name))
            return true;

    return false;
}
} // namespace

juce::Font LookAndFeel::getLabelFont (juce::Label& label)
{
    if (! isStyled (label))
        return label.getFont();

    const bool bold = label.getProperties()[styleProperty::bold];
    const auto face = bold ? Face::bold : getFaceForCategory (scaleRule::categoryOf (label));
    const auto room = float (textArea (*this, label).getHeight());
    const auto height = std::min (scaleRule::textHeight (label), room);
    return getFont (face).withHeight (std::max (height, 1.0f));
}

void LookAndFeel::drawLabelText (juce::Graphics& g, juce::Label& label)
{
    const auto font = getLabelFont (label);
    const auto area = textArea (*this, label);
    const juce::Graphics::ScopedSaveState state (g);

    if (readsUpwards (label))
        g.addTransform (juce::AffineTransform::rotation (-juce::MathConstants<float>::halfPi)
                            .translated (0.0f, float (label.getHeight())));

    g.setFont (font);
    g.drawFittedText (label.getText(),
                      area,
                      label.getJustificationType(),
                      std::max (1, int (float (area.getHeight()) / font.getHeight())),
                      label.getMinimumHorizontalScale());
}

void LookAndFeel::drawLabelWithDisabledAlpha (juce::Graphics& g, juce::Label& label, float disabledAlpha)
{
    g.fillAll (label.findColour (juce::Label::backgroundColourId));

    auto outline = label.findColour (juce::Label::outlineColourId);

    if (! label.isBeingEdited())
    {
        const auto alpha = label.isEnabled() ? 1.0f : disabledAlpha;
        g.setColour (label.findColour (juce::Label::textColourId).withMultipliedAlpha (alpha));
        drawLabelText (g, label);
        outline = outline.withMultipliedAlpha (alpha);
    }
    else
    {
        outline = label.findColour (juce::Label::outlineWhenEditingColourId);
    }

    g.setColour (outline);
    g.drawRect (label.getLocalBounds());
}

void LookAndFeel::drawLabel (juce::Graphics& g, juce::Label& label)
{
    drawLabelWithDisabledAlpha (g, label, disabledTextAlpha);
}

} // namespace mk::pluginCore
