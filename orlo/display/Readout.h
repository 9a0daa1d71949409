// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "NoteNames.h"

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The text for a frequency, such as "445.00Hz (A3 +20cents)": the note only between 20 and 10000 Hz, the
    cents only if they are not 0. */
[[nodiscard]] juce::String formatReadout (double hz, const notes::Tuning& tuning);

/** The height of the tag in an editor of the given height; 0 if there is no editor. */
[[nodiscard]] int getReadoutHeight (int editorHeight) noexcept;

/** The bounds of the tag in its container, and the justification of its text. */
struct ReadoutPlacement
{
    juce::Rectangle<int> bounds;
    juce::Justification justification;
};

/** The area of the text in the tag. */
[[nodiscard]] juce::Rectangle<int> getReadoutTextArea (juce::Rectangle<int> tag) noexcept;

/** Right of the cursor and below it; near the right and lower edges left of it and above. Always in the container.

    @param cursor     in the container, which has its origin at 0, 0
    @param textWidth  in pixels
    @param height     of the tag
*/
[[nodiscard]] ReadoutPlacement
    placeReadoutAtCursor (juce::Point<int> cursor, int textWidth, int height, juce::Rectangle<int> container) noexcept;

/** At the lower left of the view, and inside the container. */
[[nodiscard]] ReadoutPlacement
    placeReadoutAtRest (juce::Rectangle<int> view, int textWidth, int height, juce::Rectangle<int> container) noexcept;

} // namespace mk::orlo
