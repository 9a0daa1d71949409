// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/look/PluginLookAndFeel.h"
#include "plugin_core/style/ScaleRule.h"

namespace mk::orlo
{

/** The size class of the texts on and beside the picture. */
inline constexpr int displaySizeClass = 4;

/** The smallest horizontal scale of texts on the display, small enough that a text is never cut off. */
inline constexpr float narrowestTextScale = 0.01f;

/** The font for figures that change while they are read; with a look and feel of another class, its menu
    font. */
[[nodiscard]] inline juce::Font findScaleFont (const juce::Component& component)
{
    if (const auto* const style = dynamic_cast<const PluginLookAndFeel*> (&component.getLookAndFeel()))
        return style->getScaleFont();

    return component.getLookAndFeel().getPopupMenuFont();
}

/** The font for the labels of a strip beside the picture: the look and feel's, a little lower than the
    component's text height. */
[[nodiscard]] inline juce::Font makeStripFont (const juce::Component& strip)
{
    constexpr auto shareOfTextHeight = 0.8f;
    return findScaleFont (strip).withHeight (pluginCore::scaleRule::legibleTextHeight (strip) * shareOfTextHeight);
}

} // namespace mk::orlo
