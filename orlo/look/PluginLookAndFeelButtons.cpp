// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginLookAndFeel.h"
#include "orlo/controls/ButtonBarComponent.h"
#include "orlo/style/OrloColours.h"
#include "plugin_core/style/MouseFade.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
namespace scaleRule = pluginCore::scaleRule;
namespace styleProperty = pluginCore::styleProperty;

constexpr float outlineWidth = 2.0f;
constexpr float buttonInset = 1.5f;
constexpr float imageGroundInset = 5.0f;
constexpr float mostOfHeight = 0.8f;

[[nodiscard]] juce::Path makeConnectedShape (const juce::Button& button, juce::Rectangle<float> area, float radius)
{
    const auto left = button.isConnectedOnLeft();
    const auto right = button.isConnectedOnRight();
    const auto top = button.isConnectedOnTop();
    const auto bottom = button.isConnectedOnBottom();
    juce::Path shape;
    shape.addRoundedRectangle (area.getX(),
                               area.getY(),
                               area.getWidth(),
                               area.getHeight(),
                               radius,
                               radius,
                               ! (left || top),
                               ! (right || top),
                               ! (left || bottom),
                               ! (right || bottom));
    return shape;
}

void drawImageGround (juce::Graphics& g, const juce::DrawableButton& button)
{
    const auto width = scaleRule::editorWidthAbove (button);
    const auto area = button.getLocalBounds().toFloat().reduced (scaleRule::scaled (imageGroundInset, width));
    const auto radius = scaleRule::cornerRadius (width) * 0.5f;
    const auto alpha = button.isEnabled() ? 1.0f : 0.5f;
    const auto frame = button.getToggleState() || button.hasKeyboardFocus (true)
                           ? juce::ComboBox::focusedOutlineColourId
                           : juce::ComboBox::outlineColourId;

    g.setColour (
        pluginCore::raised (button.findColour (juce::ComboBox::backgroundColourId)).withMultipliedAlpha (alpha));
    g.fillRoundedRectangle (area, radius);
    g.setColour (button.findColour (frame).withMultipliedAlpha (alpha));
    g.drawRoundedRectangle (area.reduced (outlineWidth * 0.5f), radius, outlineWidth);
}

/** Draws the focus frame of a button that is joined to others, within its visible part. */
void drawFocusFrame (juce::Graphics& g, const juce::Button& button, float radius)
{
    // The next button's edge covers the last pixel.
    const auto seen = button.getLocalBounds().withTrimmedRight (button.isConnectedOnRight() ? 1 : 0);
    const auto shape = makeConnectedShape (button, seen.toFloat().reduced (outlineWidth * 0.5f), radius);
    g.setColour (button.findColour (juce::ComboBox::focusedOutlineColourId));
    g.strokePath (shape, juce::PathStrokeType (outlineWidth));
}

void drawImageFocusFrame (juce::Graphics& g, const juce::DrawableButton& button)
{
    g.setColour (button.findColour (juce::ComboBox::focusedOutlineColourId));
    g.drawRoundedRectangle (button.getLocalBounds().toFloat().reduced (outlineWidth * 0.5f),
                            scaleRule::cornerRadius (button) * 0.5f,
                            outlineWidth);
}

/** Draws a shadow that makes an image visible on any background, such as a bright picture. */
void drawImageShadow (juce::Graphics& g, const juce::Drawable& image, float opacity)
{
    auto shape = image.getOutlineAsPath();
    shape.applyTransform (image.getTransform());
    const auto drop = std::max (1.0f, float (image.getParentHeight()) / 40.0f);

    g.setColour (juce::Colours::black.withAlpha (0.45f * opacity));
    g.strokePath (shape, juce::PathStrokeType (drop), juce::AffineTransform::translation (0.0f, drop * 0.5f));
    g.fillPath (shape, juce::AffineTransform::translation (0.0f, drop));
}
} // namespace

void PluginLookAndFeel::drawButtonBackground (juce::Graphics& g,
                                              juce::Button& button,
                                              const juce::Colour& colour,
                                              bool isOver,
                                              bool isDown)
{
    const auto radius = scaleRule::cornerRadius (button);
    const auto isFocused = button.hasKeyboardFocus (true);
    auto face = colour.withMultipliedSaturation (isFocused ? 1.3f : 0.9f)
                    .withMultipliedAlpha (button.isEnabled() ? 1.0f : 0.5f);

    const auto contrast = isDown ? 0.2f : 0.05f * pluginCore::mouseFade::hoverFactor (button, isOver);

    if (contrast > 0.0f)
        face = face.contrasting (contrast);

    const auto isOn = isDown || button.getToggleState();
    g.setColour (face);

    if (button.getConnectedEdgeFlags() == 0)
    {
        const auto area = button.getLocalBounds().toFloat().reduced (buttonInset);
        g.fillRoundedRectangle (area, radius);

        if (isFocused)
        {
            g.setColour (button.findColour (juce::ComboBox::focusedOutlineColourId));
            g.drawRoundedRectangle (area.reduced (outlineWidth * 0.5f), radius, outlineWidth);
        }
        else if (button.findParentComponentOfClass<ButtonBarComponent>() != nullptr)
        {
            g.setColour (button.findColour (colourId::barButtonOutline));
            g.drawRoundedRectangle (area, radius, outlineWidth);
        }

        return;
    }

    const auto shape = makeConnectedShape (button, button.getLocalBounds().toFloat().reduced (0.5f), radius);
    g.fillPath (shape);

    if (isFocused)
    {
        drawFocusFrame (g, button, radius);
    }
    else if (isOn)
    {
        g.setColour (button.findColour (juce::ComboBox::focusedOutlineColourId));
        g.strokePath (shape, juce::PathStrokeType (1.0f));
    }
}

juce::Font PluginLookAndFeel::getTextButtonFont (juce::TextButton&, int) { return controlFont; }

int PluginLookAndFeel::getTextButtonWidthToFitText (juce::TextButton& button, int buttonHeight)
{
    const auto height = std::min (scaleRule::textHeight (button), float (buttonHeight) * mostOfHeight);
    const auto font = getTextButtonFont (button, buttonHeight).withHeight (height);
    return juce::GlyphArrangement::getStringWidthInt (font, button.getButtonText()) + buttonHeight;
}

void PluginLookAndFeel::drawButtonText (juce::Graphics& g, juce::TextButton& button, bool, bool)
{
    const auto area = button.getLocalBounds().reduced (std::min (button.getHeight() / 6, button.getWidth() / 8), 0);
    const auto height = std::min (scaleRule::textHeight (button), float (button.getHeight()) * mostOfHeight);
    const auto colour = button.findColour (button.getToggleState() ? juce::TextButton::textColourOnId
                                                                   : juce::TextButton::textColourOffId);

    g.setFont (getTextButtonFont (button, button.getHeight()).withHeight (height));
    g.setColour (colour.withMultipliedAlpha (button.isEnabled() ? 1.0f : 0.5f));
    g.drawFittedText (button.getButtonText(), area, juce::Justification::centred, 1);
}

float PluginLookAndFeel::getImageOpacity (const juce::Button& button, bool isOver, bool isDown)
{
    const auto opacity = isDown ? 0.8f : (isOver || button.getToggleState() ? 0.6f : 0.4f);
    return button.isEnabled() ? opacity : opacity * 0.5f;
}

void PluginLookAndFeel::drawDrawableButton (juce::Graphics& g, juce::DrawableButton& button, bool isOver, bool isDown)
{
    const auto opacity = getImageOpacity (button, isOver, isDown);
    const bool withGround = button.getProperties()[styleProperty::bg];
    const bool withoutShadow = button.getProperties()[styleProperty::noShadows];

    if (withGround)
        drawImageGround (g, button);
    else if (button.hasKeyboardFocus (true))
        drawImageFocusFrame (g, button);

    // The image is a child of the button, which is painted after this.
    for (auto* child : button.getChildren())
    {
        if (auto* image = dynamic_cast<juce::Drawable*> (child))
        {
            if (! withoutShadow)
                drawImageShadow (g, *image, opacity);

            image->setAlpha (opacity);
        }
    }
}

} // namespace mk::orlo
