// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <vector>

namespace mk::pluginCore
{

/** A piece of a help text in one weight. */
struct TipRun
{
    juce::String text;
    bool isBold;

    bool operator== (const TipRun&) const = default;
};

/** Cuts a help text such as "**Freeze** holds the picture" at its asterisks: every second piece is bold.
    Pieces without any text are left out. */
[[nodiscard]] std::vector<TipRun> splitTip (const juce::String& tip);

/** The faces and colours of a line of help. */
struct TipStyle
{
    juce::Font regularFont, boldFont;
    juce::Colour regularColour, boldColour;
};

/** One line of help that is no wider than the width: a text that is too long is narrowed a little, and if
    that is not enough its end is replaced by an ellipsis. Empty if not even the ellipsis fits. */
[[nodiscard]] juce::AttributedString
    makeTooltipLine (const std::vector<TipRun>& runs, const TipStyle& style, float width);

/** The height of the text in a line of the given height. */
[[nodiscard]] float getTooltipTextHeight (int lineHeight) noexcept;

/** The area of the text in the line. */
[[nodiscard]] juce::Rectangle<int> getTooltipTextArea (juce::Rectangle<int> line) noexcept;

} // namespace mk::pluginCore
