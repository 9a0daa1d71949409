// SPDX-License-Identifier: AGPL-3.0-or-later
#include "PluginLookAndFeel.h"
#include "SliderProperties.h"
#include "plugin_core/controls/ParameterSlider.h"
#include "plugin_core/style/MouseFade.h"
#include "plugin_core/style/Palette.h"
#include "plugin_core/style/ScaleRule.h"
#include "plugin_core/style/StyleProperties.h"

namespace mk::orlo
{
namespace
{
namespace scaleRule = pluginCore::scaleRule;
namespace styleProperty = pluginCore::styleProperty;

constexpr float barInset = 2.5f;
constexpr float knobWidth = 5.0f;
constexpr float trackAlpha = 0.5f;
constexpr float disabledAlpha = 0.5f;
constexpr float hoverContrast = 0.1f;
constexpr float focusFrameGap = 1.5f;
constexpr float valueTextRoom = 1.2f;
constexpr int thumbRadius = 3;

/** The part of the bar between two positions along the slider. */
[[nodiscard]] juce::Rectangle<float> between (juce::Rectangle<float> bar, bool isVertical, float from, float to)
{
    if (isVertical)
        return bar.getIntersection ({ bar.getX(), std::min (from, to), bar.getWidth(), std::abs (to - from) });

    return bar.getIntersection ({ std::min (from, to), bar.getY(), std::abs (to - from), bar.getHeight() });
}

/** The bounds of the knob, kept inside the bar. */
[[nodiscard]] juce::Rectangle<float> knobAt (juce::Rectangle<float> bar, bool isVertical, float position)
{
    constexpr auto half = knobWidth * 0.5f;

    if (isVertical)
    {
        const auto y = juce::jlimit (bar.getY() + half, std::max (bar.getY() + half, bar.getBottom() - half), position);
        return { bar.getX(), y - half, bar.getWidth(), knobWidth };
    }

    const auto x = juce::jlimit (bar.getX() + half, std::max (bar.getX() + half, bar.getRight() - half), position);
    return { x - half, bar.getY(), knobWidth, bar.getHeight() };
}
} // namespace

void PluginLookAndFeel::drawLinearSlider (juce::Graphics& g,
                                          int x,
                                          int y,
                                          int width,
                                          int height,
                                          float position,
                                          float minPosition,
                                          float maxPosition,
                                          juce::Slider::SliderStyle,
                                          juce::Slider& slider)
{
    const auto bar = juce::Rectangle<int> (x, y, width, height).toFloat().reduced (barInset);

    if (bar.isEmpty())
        return;

    const auto vertical = slider.isVertical();
    const auto radius = std::min ({ scaleRule::cornerRadius (slider), bar.getWidth() * 0.5f, bar.getHeight() * 0.5f });
    const auto alpha = slider.isEnabled() ? 1.0f : disabledAlpha;
    const auto colour = pluginCore::raised (slider.findColour (juce::Slider::thumbColourId))
                            .contrasting (hoverContrast * pluginCore::mouseFade::hoverFactor (slider))
                            .withMultipliedAlpha (alpha);

    g.setColour (colour.withMultipliedAlpha (trackAlpha));
    g.fillRoundedRectangle (bar, radius);

    const auto isRange = slider.isTwoValue() || slider.isThreeValue();
    const bool reversed = findSliderProperty (slider, styleProperty::reversed);
    const auto fromTopOrRight = vertical != reversed;
    const auto end =
        vertical ? (fromTopOrRight ? bar.getBottom() : bar.getY()) : (fromTopOrRight ? bar.getRight() : bar.getX());
    const auto value =
        isRange ? between (bar, vertical, minPosition, maxPosition) : between (bar, vertical, end, position);

    {
        const juce::Graphics::ScopedSaveState state (g);
        juce::Path valuePart;
        valuePart.addRectangle (value);
        g.reduceClipRegion (valuePart);
        g.setColour (colour);
        g.fillRoundedRectangle (bar, radius);
    }

    if (slider.hasKeyboardFocus (true))
    {
        g.setColour (slider.findColour (juce::ComboBox::focusedOutlineColourId));
        g.drawRoundedRectangle (bar.expanded (focusFrameGap), radius + focusFrameGap, 1.0f);
    }

    const juce::Graphics::ScopedSaveState state (g);
    juce::Path inside;
    inside.addRoundedRectangle (bar, radius);
    g.reduceClipRegion (inside);

    const auto fillKnob = [&] (float knobPosition, bool isNearMouse)
    {
        const auto id = isNearMouse ? int (juce::ComboBox::focusedOutlineColourId) : int (juce::Slider::trackColourId);
        g.setColour (slider.findColour (id).withMultipliedAlpha (alpha));
        g.fillRect (knobAt (bar, vertical, knobPosition));
    };

    if (isRange)
    {
        const auto* const parameterSlider = dynamic_cast<const pluginCore::ParameterSlider*> (&slider);
        const auto nearThumb = parameterSlider != nullptr ? parameterSlider->getThumbNearMouse() : 0;
        fillKnob (minPosition, nearThumb == 1);
        fillKnob (maxPosition, nearThumb == 2);
    }

    if (! slider.isTwoValue())
        fillKnob (position, false);
}

juce::Slider::SliderLayout PluginLookAndFeel::getSliderLayout (juce::Slider& slider)
{
    const auto bounds = slider.getLocalBounds();
    const auto hasText = slider.getTextBoxPosition() != juce::Slider::NoTextBox;

    if (findSliderProperty (slider, styleProperty::buttonSlider))
        return { bounds, hasText ? bounds : juce::Rectangle<int>() };

    if (hasText && findSliderProperty (slider, styleProperty::labelAbove))
    {
        const auto wanted = juce::roundToInt (scaleRule::textHeight (slider) * valueTextRoom);
        auto rest = bounds;
        const auto text = rest.removeFromTop (std::min (wanted, bounds.getHeight() / 2));
        return { rest, text };
    }

    return pluginCore::LookAndFeel::getSliderLayout (slider);
}

int PluginLookAndFeel::getSliderThumbRadius (juce::Slider&) { return thumbRadius; }

juce::Font PluginLookAndFeel::getSliderPopupFont (juce::Slider& slider)
{
    return getFont (Face::monospaced).withHeight (scaleRule::textHeight (4, 1.0, scaleRule::editorWidthAbove (slider)));
}

} // namespace mk::orlo
