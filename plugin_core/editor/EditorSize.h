// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** Limits of an editor's size. Sizes are in logical pixels; the functions may be called from any thread. */
namespace mk::pluginCore::editorSize
{

/** The display that contains the point, else the one with the nearest centre, the last one on a tie.
    Null if the list is empty. */
[[nodiscard]] const juce::Displays::Display* findDisplay (const juce::Array<juce::Displays::Display>& displays,
                                                          juce::Point<int> point) noexcept;

/** The largest size that the user can drag the window to, on a display with this usable area. */
[[nodiscard]] juce::Point<int> getLargest (juce::Point<int> smallest, juce::Rectangle<int> usable) noexcept;

/** The reduced size of a window that is too large for its display, or its present size if it fits. Leaves
    10 pixels free horizontally, or 100 vertically for the host's own bars.

    @param aspectRatio  width over height, 0 for free
*/
[[nodiscard]] juce::Point<int>
    fitIntoDisplay (juce::Point<int> size, juce::Rectangle<int> usable, double aspectRatio) noexcept;

} // namespace mk::pluginCore::editorSize
