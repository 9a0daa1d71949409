// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ContainerLayout.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr int smallestText = 15;
constexpr int timeStripTexts = 4;
constexpr float helpLinePerHeight = 0.05f;
constexpr int helpLineWithoutEditor = 50;
constexpr double menuItemHeight = 46.0;
constexpr double designWidth = 1818.0;
constexpr double designHeight = 1000.0;
} // namespace

ContainerLayout layOutContainer (int width,
                                 int height,
                                 float textHeight,
                                 int editorHeight,
                                 bool isRulerShown,
                                 bool isKeyboardShown,
                                 bool isExploring) noexcept
{
    ContainerLayout layout;
    auto rest = juce::Rectangle { width, height };

    const auto text =
        juce::roundToInt (juce::jmin (juce::jmax (textHeight, float (smallestText)), float (juce::jmax (0, height))));
    const auto strip = 2 * text;

    if (isExploring)
        layout.timeStrip = rest.removeFromBottom (juce::jmin (rest.getHeight() / 3, timeStripTexts * text));

    if (isRulerShown)
        layout.ruler = rest.removeFromRight (juce::jmin (rest.getWidth(), strip));

    if (isKeyboardShown)
        layout.keyboard = rest.removeFromRight (juce::jmin (rest.getWidth(), strip));

    if (isExploring)
    {
        layout.levelBar = rest.removeFromRight (juce::jmin (rest.getWidth(), strip + text / 2));
        layout.timeStrip = layout.timeStrip.withWidth (rest.getWidth());
    }

    layout.picture = rest;

    const auto helpHeight = editorHeight > 0 ? juce::jmax (int (float (editorHeight) * helpLinePerHeight), smallestText)
                                             : helpLineWithoutEditor;
    layout.helpLine = { rest.getX(), rest.getBottom() - helpHeight, rest.getWidth(), helpHeight };
    return layout;
}

int getContextMenuItemHeight (int editorWidth, int editorHeight) noexcept
{
    if (editorWidth <= 0 || editorHeight <= 0)
        return int (menuItemHeight);

    const auto scale = std::hypot (editorWidth, editorHeight) / std::hypot (designWidth, designHeight);
    return juce::jmax (smallestText, juce::roundToInt (menuItemHeight * scale));
}

} // namespace mk::orlo
