// SPDX-License-Identifier: AGPL-3.0-or-later
#include "TooltipLine.h"

namespace mk::pluginCore
{
namespace
{
constexpr auto mark = "**";
constexpr int markLength = 2;
constexpr float narrowestScale = 0.75f;
constexpr float narrowingStep = 0.01f;
constexpr float smallestTextHeight = 12.0f;

[[nodiscard]] float getWidth (const std::vector<TipRun>& runs, const juce::Font& regular, const juce::Font& bold)
{
    auto width = 0.0f;

    for (const auto& run : runs)
        width += juce::GlyphArrangement::getStringWidth (run.isBold ? bold : regular, run.text);

    return width;
}

[[nodiscard]] juce::Font narrow (const juce::Font& font, float scale)
{
    return font.withHorizontalScale (font.getHorizontalScale() * scale);
}

/** The first numCharacters characters, followed by an ellipsis. */
[[nodiscard]] std::vector<TipRun> elide (const std::vector<TipRun>& runs, int numCharacters)
{
    std::vector<TipRun> result;

    for (const auto& run : runs)
    {
        if (numCharacters <= 0)
            break;

        result.push_back ({ run.text.substring (0, numCharacters), run.isBold });
        numCharacters -= run.text.length();
    }

    if (! result.empty())
        result.back().text = result.back().text.trimEnd() + juce::String::charToString (0x2026);

    return result;
}

[[nodiscard]] int getNumCharacters (const std::vector<TipRun>& runs)
{
    auto count = 0;

    for (const auto& run : runs)
        count += run.text.length();

    return count;
}
} // namespace

std::vector<TipRun> splitTip (const juce::String& tip)
{
    std::vector<TipRun> runs;
    auto rest = tip;

    for (auto isBold = false;; isBold = ! isBold)
    {
        const auto end = rest.indexOf (mark);

        if (const auto piece = end >= 0 ? rest.substring (0, end) : rest; piece.isNotEmpty())
            runs.push_back ({ piece, isBold });

        if (end < 0)
            return runs;

        rest = rest.substring (end + markLength);
    }
}

juce::AttributedString makeTooltipLine (const std::vector<TipRun>& runs, const TipStyle& style, float width)
{
    auto shown = runs;
    auto regular = style.regularFont;
    auto bold = style.boldFont;

    // Glyph widths are not exactly proportional to the scale, so it is found step by step.
    for (auto scale = 1.0f; getWidth (runs, regular, bold) > width && scale > narrowestScale;)
    {
        scale = juce::jmax (narrowestScale, scale - narrowingStep);
        regular = narrow (style.regularFont, scale);
        bold = narrow (style.boldFont, scale);
    }

    for (auto count = getNumCharacters (runs); getWidth (shown, regular, bold) > width; --count)
        shown = elide (runs, count - 1);

    juce::AttributedString line;
    line.setJustification (juce::Justification::centredLeft);
    line.setWordWrap (juce::AttributedString::none);

    for (const auto& run : shown)
        line.append (run.text, run.isBold ? bold : regular, run.isBold ? style.boldColour : style.regularColour);

    return line;
}

float getTooltipTextHeight (int lineHeight) noexcept
{
    return juce::jmin (juce::jmax (float (lineHeight) * 0.5f, smallestTextHeight), float (lineHeight));
}

juce::Rectangle<int> getTooltipTextArea (juce::Rectangle<int> line) noexcept
{
    return line.reduced (line.getHeight() / 4, 0);
}

} // namespace mk::pluginCore
