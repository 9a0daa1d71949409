// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The bounds of the picture and of the parts beside and on it. Hidden parts have empty bounds. */
struct ContainerLayout
{
    juce::Rectangle<int> picture, keyboard, ruler, helpLine;
    juce::Rectangle<int> levelBar, timeStrip; /**< While exploring. */
};

/** From left to right: picture, level bar, keyboard, ruler; the help line is at the bottom of the picture, and the time
    strip below it. Any thread.

    @param textHeight    of the strips' size class, in pixels; a strip is two text heights wide
    @param editorHeight  of the plug-in's window, 0 if there is none
*/
[[nodiscard]] ContainerLayout layOutContainer (int width,
                                               int height,
                                               float textHeight,
                                               int editorHeight,
                                               bool isRulerShown,
                                               bool isKeyboardShown,
                                               bool isExploring = false) noexcept;

/** The height of an entry of the picture's menu, proportional to the diagonal of the plug-in's window; without
    a window it is that for the design size. */
[[nodiscard]] int getContextMenuItemHeight (int editorWidth, int editorHeight) noexcept;

} // namespace mk::orlo
