// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

/** How large an editor may be. Sizes are logical pixels; the functions may be called from any thread. */
namespace mk::pluginCore::editorSize
{

/** The display that holds the point; failing that, the one whose middle is nearest, of equals the last.
    Null if the list is empty. */
[[nodiscard]] const juce::Displays::Display* findDisplay (const juce::Array<juce::Displays::Display>& displays,
                                                          juce::Point<int> point) noexcept;

/** The largest size that the user can drag the window to, on a display with that much usable room. */
[[nodiscard]] juce::Point<int> getLargest (juce::Point<int> smallest, juce::Rectangle<int> usable) noexcept;

/** The size to give to a window that is too large for its display, or its present size if it fits. Leaves
    ten pixels at the side, or a hundred above and below, where hosts have their own bars.

    @param aspectRatio  width over height, 0 for free
*/
[[nodiscard]] juce::Point<int>
    fitIntoDisplay (juce::Point<int> size, juce::Rectangle<int> usable, double aspectRatio) noexcept;

} // namespace mk::pluginCore::editorSize
