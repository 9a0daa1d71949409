// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** Where the picture and what stands beside and on it lie. What is not shown has empty bounds. */
struct ContainerLayout
{
    juce::Rectangle<int> picture, keyboard, ruler, helpLine;
};

/** From left to right picture, keyboard, ruler; the line of help lies on the foot of the picture. Any thread.

    @param textHeight    of the strips' size class, in pixels; a strip is two texts wide
    @param editorHeight  of the plug-in's window, 0 if there is none
*/
[[nodiscard]] ContainerLayout layOutContainer (int width,
                                               int height,
                                               float textHeight,
                                               int editorHeight,
                                               bool isRulerShown,
                                               bool isKeyboardShown) noexcept;

/** The height of an entry of the picture's menu, by the diagonal of the plug-in's window; without one as in
    the window that the design was made at. */
[[nodiscard]] int getContextMenuItemHeight (int editorWidth, int editorHeight) noexcept;

} // namespace mk::orlo
