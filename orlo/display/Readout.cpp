// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Readout.h"

#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr double lowestWithNote = 20.0;
constexpr double highestWithNote = 10000.0;
constexpr int heightWithoutEditor = 40;
constexpr int smallestHeight = 15;
constexpr int columnOfName = 3;

[[nodiscard]] juce::String formatNote (double hz, const notes::Tuning& tuning)
{
    const auto note = notes::noteForFrequency (hz, tuning.concertPitch);
    const auto nearest = std::round (note);
    const auto cents = int (std::round ((note - nearest) * 100.0));
    auto name = notes::getNoteName (int (nearest), tuning.octaveOfMiddleC);

    if (cents == 0)
        return name;

    // Name and cents are padded to fixed columns, so that they do not shift while the cursor moves.
    const auto sign = cents > 0 ? "+" : "-";
    return name.paddedRight (' ', columnOfName)
           + (sign + juce::String (std::abs (cents))).paddedLeft (' ', columnOfName) + juce::translate ("cents");
}

[[nodiscard]] int getReadoutWidth (int textWidth, int height) noexcept
{
    return juce::jmax (textWidth, height) + height / 2;
}
} // namespace

juce::String formatReadout (double hz, const notes::Tuning& tuning)
{
    const auto frequency = juce::String (hz, 2) + juce::translate ("Hz") + " ";

    return hz > lowestWithNote && hz < highestWithNote ? frequency + "(" + formatNote (hz, tuning) + ")" : frequency;
}

int getReadoutHeight (int editorHeight) noexcept
{
    return editorHeight > 0 ? juce::jmax (int (float (editorHeight) * 0.04f), smallestHeight) : heightWithoutEditor;
}

juce::Rectangle<int> getReadoutTextArea (juce::Rectangle<int> tag) noexcept
{
    return tag.reduced (tag.getHeight() / 4, 0);
}

ReadoutPlacement
    placeReadoutAtCursor (juce::Point<int> cursor, int textWidth, int height, juce::Rectangle<int> container) noexcept
{
    const auto width = getReadoutWidth (textWidth, height);
    const auto half = height / 2;
    const auto right = cursor.x + half;
    const auto fitsRight = right + width < container.getWidth() - half;
    const auto fitsLeft = right - width > half;

    const auto x = fitsRight ? right : fitsLeft ? cursor.x - (width + half) : 0;
    const auto below = cursor.y + half;
    const auto y = juce::jmax (0, below < container.getHeight() - 2 * height ? below : below - 2 * height);

    return { juce::Rectangle { x, y, width, height }.constrainedWithin (container),
             fitsRight  ? juce::Justification::centredLeft
             : fitsLeft ? juce::Justification::centredRight
                        : juce::Justification::centred };
}

ReadoutPlacement
    placeReadoutAtRest (juce::Rectangle<int> view, int textWidth, int height, juce::Rectangle<int> container) noexcept
{
    const auto width = getReadoutWidth (textWidth, height);
    const juce::Rectangle bounds { view.getX() + 1, view.getBottom() - 1 - height, width, height };
    return { bounds.constrainedWithin (container), juce::Justification::centredLeft };
}

} // namespace mk::orlo
