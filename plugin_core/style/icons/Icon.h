// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <array>

namespace mk::pluginCore
{

/** The pictures on buttons, in menus and in lists. All are drawn on one grid of 24 by 24 units with one
    stroke weight of 2 and round ends. */
enum class Icon
{
    settings,
    freeze,
    exportPicture,
    about,
    viewStandard, /**< a window with a side bar: leads to the Standard View */
    viewFull,     /**< four corners: leads to the Full View */
    presets,
    arrowLeft,
    arrowRight,
    arrowUp,
    arrowDown,
    ruler,
    keyboard,
    autoPause,
    folder,
    document,
    tick,
    close
};

inline constexpr std::array allIcons { Icon::settings,     Icon::freeze,    Icon::exportPicture, Icon::about,
                                       Icon::viewStandard, Icon::viewFull,  Icon::presets,       Icon::arrowLeft,
                                       Icon::arrowRight,   Icon::arrowUp,   Icon::arrowDown,     Icon::ruler,
                                       Icon::keyboard,     Icon::autoPause, Icon::folder,        Icon::document,
                                       Icon::tick,         Icon::close };

inline constexpr float iconGridSize = 24.0f;
inline constexpr float iconStrokeWeight = 2.0f;

/** An icon's outline, to be filled, for a square of size by size pixels with its corner at (0, 0).

    The outline is fitted to the pixels: strokes are a whole number of pixels wide, and vertical and horizontal
    ones lie on whole pixels, so that they are sharp at every size. Its bounds are always the whole square, so
    that icons that are scaled to fit stay on their common grid. Sizes below 8 count as 8.
    Any thread. */
[[nodiscard]] juce::Path makeIconPath (Icon icon, float size);

/** Draws an icon in the middle of the area, as the largest square that fits, sharp at the scale of the
    context; the area's corner should lie on a whole pixel. [message thread] */
void drawIcon (juce::Graphics& g, Icon icon, juce::Rectangle<float> area, juce::Colour colour);

} // namespace mk::pluginCore
