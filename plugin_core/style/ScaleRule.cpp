// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ScaleRule.h"

#include "StyleProperties.h"

#include <juce_audio_processors/juce_audio_processors.h>

#include <algorithm>
#include <array>

namespace mk::pluginCore::scaleRule
{
namespace
{
constexpr float radiusPerWidth = 0.00550055f;
constexpr float radiusWithoutEditor = 10.0f;
constexpr std::array categoryHeights { 55.0f, 40.0f, 33.0f, 33.0f, 25.0f };
constexpr float otherCategoryHeight = 36.0f;
constexpr float leastLegibleHeight = 15.0f;
} // namespace

std::optional<int> editorWidthAbove (const juce::Component& component)
{
    if (const auto* editor = component.findParentComponentOfClass<juce::AudioProcessorEditor>())
        return editor->getWidth();

    return std::nullopt;
}

float scaled (float designSize, std::optional<int> editorWidth) noexcept
{
    return editorWidth.has_value() ? designSize / designWidth * float (*editorWidth) : designSize;
}

float cornerRadius (std::optional<int> editorWidth) noexcept
{
    return editorWidth.has_value() ? float (*editorWidth) * radiusPerWidth : radiusWithoutEditor;
}

float cornerRadius (const juce::Component& component) { return cornerRadius (editorWidthAbove (component)); }

float categoryHeight (int category) noexcept
{
    return juce::isPositiveAndBelow (category, int (categoryHeights.size())) ? categoryHeights[size_t (category)]
                                                                             : otherCategoryHeight;
}

float textHeight (int category, double fontScale, std::optional<int> editorWidth) noexcept
{
    return float (double (scaled (categoryHeight (category), editorWidth)) * fontScale);
}

float textHeight (const juce::Component& component)
{
    const double fontScale = component.getProperties().getWithDefault (styleProperty::fontScale, 1.0);
    return textHeight (categoryOf (component), fontScale, editorWidthAbove (component));
}

float legibleTextHeight (const juce::Component& component)
{
    return std::min (std::max (textHeight (component), leastLegibleHeight), float (component.getHeight()));
}

int categoryOf (const juce::Component& component)
{
    return component.getProperties().getWithDefault (styleProperty::cat, defaultCategory);
}

} // namespace mk::pluginCore::scaleRule
