// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::pluginCore
{

/** The width in pixels that the window was designed at; texts grow with the window in proportion. */
inline constexpr float designWidth = 1818.0f;

/** The height of a component's text in pixels: the property "cat" picks the size class (2 if absent), the
    property "fontScale" multiplies it (1 if absent), and inside a plug-in editor it follows the editor's
    width. [message thread] */
[[nodiscard]] float getTextHeight (const juce::Component& component);

/** The same, at least 15 pixels so that it can be read, but never more than the component is high. */
[[nodiscard]] float getLegibleTextHeight (const juce::Component& component);

/** The colour that the component or its look and feel has for the id, otherwise the given one. */
[[nodiscard]] juce::Colour findColourOr (const juce::Component& component, int colourId, juce::Colour fallback);

} // namespace mk::pluginCore
