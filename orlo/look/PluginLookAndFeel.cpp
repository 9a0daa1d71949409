// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginLookAndFeel.h"

#include "SliderLabelComp.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/look/MyCaretComponent.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
namespace styleProperty = pluginCore::styleProperty;

constexpr float disabledTextAlpha = 0.4f;
constexpr float disabledValueAlpha = 0.8f;
constexpr int caretWidth = 2;

// The start and the end of the gradient of a label's text, in heights of the label.
constexpr float gradientStart = 0.355f;
constexpr float gradientEnd = 0.6f;
constexpr float gradientDarkening = 0.3f;

void setTextGradient (juce::Graphics& g, const juce::Label& label, juce::Colour colour)
{
    const auto height = float (label.getHeight());
    const float shift = label.getProperties().getWithDefault (styleProperty::gradYProp, 0.0);
    g.setGradientFill (juce::ColourGradient::vertical (
        colour, height * (gradientStart + shift), colour.darker (gradientDarkening), height * (gradientEnd + shift)));
}
} // namespace

/** The fonts of this product that belong to no widget. */
struct PluginLookAndFeel::Fonts
{
    juce::Font scale;
};

PluginLookAndFeel::PluginLookAndFeel()
    : fonts (std::make_shared<const Fonts> (Fonts { getFont (getFaceForCategory (4)) })),
      controlFont (getFont (Face::semiBold))
{
    for (const auto& setting : getOrloColours())
        setColour (setting.id, juce::Colour (setting.argb));
}

PluginLookAndFeel::~PluginLookAndFeel() = default;

const juce::Font& PluginLookAndFeel::getScaleFont() const noexcept { return fonts->scale; }

juce::CaretComponent* PluginLookAndFeel::createCaretComponent (juce::Component* keyFocusOwner)
{
    return std::make_unique<MyCaretComponent> (keyFocusOwner, caretWidth).release();
}

juce::Label* PluginLookAndFeel::createSliderTextBox (juce::Slider& slider)
{
    return std::make_unique<SliderLabelComp> (slider).release();
}

juce::Font PluginLookAndFeel::getLabelFont (juce::Label& label)
{
    if (const auto* valueText = dynamic_cast<const SliderLabelComp*> (&label))
        return valueText->getTextFont (*this);

    return pluginCore::LookAndFeel::getLabelFont (label);
}

void PluginLookAndFeel::drawLabel (juce::Graphics& g, juce::Label& label)
{
    const bool withGradient = label.getProperties()[styleProperty::grad];

    if (withGradient && ! label.isBeingEdited())
    {
        const auto alpha = label.isEnabled() ? 1.0f : disabledTextAlpha;
        g.fillAll (label.findColour (juce::Label::backgroundColourId));
        g.setColour (label.findColour (juce::Label::outlineColourId).withMultipliedAlpha (alpha));
        g.drawRect (label.getLocalBounds());
        setTextGradient (g, label, label.findColour (juce::Label::textColourId).withMultipliedAlpha (alpha));
        drawLabelText (g, label);
        return;
    }

    const auto isValueText = dynamic_cast<const SliderLabelComp*> (&label) != nullptr;
    drawLabelWithDisabledAlpha (g, label, isValueText ? disabledValueAlpha : disabledTextAlpha);
}

void PluginLookAndFeel::drawCornerResizer (juce::Graphics& g, int width, int height, bool isMouseOver, bool isDragging)
{
    constexpr int numLines = 3;
    const auto size = float (std::min (width, height));
    const auto colour = findColour (colourId::cornerGrip);
    g.setColour (isMouseOver || isDragging ? colour.brighter (0.3f) : colour);

    for (int i = 1; i <= numLines; ++i)
    {
        const auto length = size * 0.2f * float (i);
        g.drawLine (float (width) - length - 2.0f,
                    float (height) - 2.0f,
                    float (width) - 2.0f,
                    float (height) - length - 2.0f,
                    std::max (1.0f, size * 0.04f));
    }
}

} // namespace mk::orlo
