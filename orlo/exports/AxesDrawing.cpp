// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AxesDrawing.h"

#include "AxisTicks.h"

#include "orlo/analysis/ColumnSettings.h"
#include "orlo/stills/StillScales.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
const juce::Colour lightPaper { 0xffffffff }, lightInk { 0xff1c1c1c };
const juce::Colour darkPaper { 0xff151515 }, darkInk { 0xffdedede };

constexpr float titleShare = 1.45f; // of the labels' height
constexpr float longestInMilliseconds = 0.2f;

/** Where a text is put about its place. */
enum class Anchor
{
    right,
    left,
    centre
};

[[nodiscard]] float measure (const juce::Font& font, const juce::String& text)
{
    return juce::GlyphArrangement::getStringWidth (font, text);
}

/** The font with capitals and digits about 0.7 of the height, as most have, so that their middle is on a line. */
void addText (juce::Path& path,
              const juce::Font& font,
              const juce::String& text,
              juce::Point<float> place,
              Anchor anchor,
              bool isUpward = false)
{
    const auto width = measure (font, text);
    const auto shift = anchor == Anchor::right ? width : anchor == Anchor::centre ? 0.5f * width : 0.0f;
    juce::GlyphArrangement glyphs;
    glyphs.addLineOfText (font, text, 0.0f, 0.0f);
    juce::Path line;
    glyphs.createPath (line);

    auto transform = juce::AffineTransform::translation (-shift, 0.5f * 0.7f * font.getAscent());

    if (isUpward)
        transform = transform.rotated (-juce::MathConstants<float>::halfPi);

    path.addPath (line, transform.translated (place));
}

[[nodiscard]] float findWidest (const std::vector<AxisTick>& ticks, const juce::Font& font)
{
    auto widest = 0.0f;

    for (const auto& tick : ticks)
        widest = std::max (widest, measure (font, tick.text));

    return widest;
}

/** A line of the stroke's thickness about a coordinate. */
[[nodiscard]] int getLineStart (float middle, int stroke) noexcept
{
    return juce::roundToInt (middle - 0.5f * float (stroke));
}

void addFrame (juce::RectangleList<int>& lines, juce::Rectangle<int> area, int stroke)
{
    const auto outside = area.expanded (stroke);
    lines.add (outside.withHeight (stroke));
    lines.add (outside.withTop (area.getBottom()));
    lines.add (outside.withWidth (stroke));
    lines.add (outside.withLeft (area.getRight()));
}

/** Draws the ticks of one axis and their labels. */
class AxisDrawer
{
public:
    AxisDrawer (AxesDrawing& target, const juce::Font& labelFont) : drawing (target), font (labelFont) {}

    void drawBelow (juce::Rectangle<int> area, const std::vector<AxisTick>& ticks)
    {
        const auto& layout = drawing.layout;
        const auto top = area.getBottom() + layout.stroke;

        for (const auto& tick : ticks)
        {
            const auto x = float (area.getX()) + tick.position * float (area.getWidth());
            const auto left =
                std::clamp (getLineStart (x, layout.stroke), area.getX(), area.getRight() - layout.stroke);
            drawing.lines.add (left, top, layout.stroke, getLength (tick));
            addText (drawing.texts,
                     font,
                     tick.text,
                     { x, float (top + layout.tick) + 0.35f * layout.em + 0.5f * layout.em },
                     Anchor::centre);
        }
    }

    void drawBeside (juce::Rectangle<int> area, const std::vector<AxisTick>& ticks, bool isLeft)
    {
        const auto& layout = drawing.layout;
        const auto gap = float (layout.tick) + 0.35f * layout.em;

        for (const auto& tick : ticks)
        {
            const auto y = float (area.getBottom()) - tick.position * float (area.getHeight());
            const auto top =
                std::clamp (getLineStart (y, layout.stroke), area.getY(), area.getBottom() - layout.stroke);
            const auto length = getLength (tick);
            const auto edge = isLeft ? area.getX() - layout.stroke : area.getRight() + layout.stroke;
            drawing.lines.add (isLeft ? edge - length : edge, top, length, layout.stroke);
            addText (drawing.texts,
                     font,
                     tick.text,
                     { isLeft ? float (edge) - gap : float (edge) + gap, y },
                     isLeft ? Anchor::right : Anchor::left);
        }
    }

private:
    [[nodiscard]] int getLength (const AxisTick& tick) const noexcept
    {
        return tick.text.isNotEmpty() ? drawing.layout.tick : drawing.layout.minorTick;
    }

    AxesDrawing& drawing;
    const juce::Font& font;
};

/** As much of the text as is not wider. */
[[nodiscard]] juce::String shorten (const juce::String& text, const juce::Font& font, float width)
{
    if (measure (font, text) <= width)
        return text;

    const auto dots = juce::String::fromUTF8 ("\xe2\x80\xa6");
    auto length = text.length();

    while (length > 0 && measure (font, text.substring (0, length) + dots) > width)
        --length;

    return text.substring (0, length).trimEnd() + dots;
}
} // namespace

AxesRange getAxesRange (const StillRequest& request, const StillColours& colours) noexcept
{
    FrameFormat format;
    format.sampleRate = float (request.hop.sampleRate);
    const auto range = makeColumnSettings (format, { request.minFreqFraction, request.maxFreqFraction, 0.0f, 0.0f, 1 });

    return { request.length / request.hop.sampleRate,
             range.minHz,
             range.maxHz,
             request.scaleType,
             colours.floorDb,
             colours.ceilingDb };
}

AxesDrawing drawAxes (const ExportSettings& settings,
                      const AxesRange& range,
                      const AxesWords& words,
                      const juce::Font& labels,
                      const juce::Font& title)
{
    AxesDrawing drawing;
    drawing.settings = settings;
    drawing.paper = settings.isLight ? lightPaper : darkPaper;
    drawing.ink = settings.isLight ? lightInk : darkInk;
    drawing.layout = layOutAxes (settings, 0.0f, 0.0f);

    if (! settings.hasAxes)
        return drawing;

    const auto em = drawing.layout.em;
    const auto font = labels.withHeight (em);
    FrequencyScale scale;
    scale.setScaleType (range.scaleType);
    scale.setRange (range.minHz, range.maxHz);

    // The height of the plot does not depend on the widths of the labels.
    const auto plotHeight = float (drawing.layout.plot.getHeight());
    const auto frequencies = makeFrequencyTicks (scale, std::min (1.0f, 1.5f * em / plotHeight));
    const auto levels =
        makeEvenTicks (double (range.floorDb), double (range.ceilingDb), std::max (1, int (plotHeight / (3.0f * em))));
    drawing.layout = layOutAxes (settings, findWidest (frequencies, font), findWidest (levels, font));

    const auto& layout = drawing.layout;
    const auto isShort = range.seconds < double (longestInMilliseconds);
    const auto times = makeEvenTicks (0.0,
                                      range.seconds * (isShort ? 1000.0 : 1.0),
                                      std::max (1, int (float (layout.plot.getWidth()) / (5.0f * em))));

    addFrame (drawing.lines, layout.plot, layout.stroke);
    addFrame (drawing.lines, layout.bar, layout.stroke);

    AxisDrawer axes (drawing, font);
    axes.drawBelow (layout.plot, times);
    axes.drawBeside (layout.plot, frequencies, true);
    axes.drawBeside (layout.bar, levels, false);

    const auto centre = layout.plot.getCentre().toFloat();
    addText (
        drawing.texts, font, words.time + (isShort ? " (ms)" : " (s)"), { centre.x, layout.timeName }, Anchor::centre);
    addText (drawing.texts, font, words.frequency + " (Hz)", { layout.frequencyName, centre.y }, Anchor::centre, true);
    addText (drawing.texts, font, words.level + " (dB)", { layout.levelName, centre.y }, Anchor::centre, true);

    // Above the middle of the plot, as far as both sides have room.
    const auto titleFont = title.withHeight (titleShare * em);
    const auto room = 2.0f * (std::min (centre.x, float (settings.width) - centre.x) - em);
    addText (drawing.texts,
             titleFont,
             shorten (settings.title.trim(), titleFont, room),
             { centre.x, layout.titleLine },
             Anchor::centre);
    return drawing;
}

//==============================================================================
namespace
{
/** The colours of the levels, from the ceiling at the top to the floor at the bottom. */
void paintBar (const AxesDrawing& drawing, const StillColours& colours, juce::Graphics& g, juce::Rectangle<int> shown)
{
    const auto bar = drawing.layout.bar;
    const auto& entries = colours.map->getColours();

    for (int y = std::max (bar.getY(), shown.getY()); y < std::min (bar.getBottom(), shown.getBottom()); ++y)
    {
        const auto level = 1.0f - (float (y - bar.getY()) + 0.5f) / float (bar.getHeight());
        g.setColour (entries.getReference (ColourMap::entryForLevel (level)));
        g.fillRect (bar.withY (y).withHeight (1));
    }
}
} // namespace

void paintBand (const AxesDrawing& drawing,
                const StillPicture& still,
                const StillColours& colours,
                juce::Image& band,
                int firstRow)
{
    const auto rows = juce::Rectangle<int> (0, firstRow, band.getWidth(), band.getHeight());
    const auto plot = drawing.layout.plot;
    const auto shown = plot.getIntersection (rows);

    if (drawing.settings.hasAxes)
    {
        juce::Graphics g (band);
        g.setOrigin (0, -firstRow);
        g.fillAll (drawing.paper);
        paintBar (drawing, colours, g, rows);
        g.setColour (drawing.ink);
        g.fillRectList (drawing.lines);
        g.fillPath (drawing.texts);
    }

    if (! shown.isEmpty())
    {
        juce::Image::BitmapData pixels (band,
                                        plot.getX(),
                                        shown.getY() - firstRow,
                                        plot.getWidth(),
                                        shown.getHeight(),
                                        juce::Image::BitmapData::writeOnly);
        still.paint (colours, pixels, shown.getY() - plot.getY(), shown.getBottom() - plot.getY(), 0);
    }
}

} // namespace mk::orlo
