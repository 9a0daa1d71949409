// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Icon.h"

#include "IconArt.h"

#include <cmath>

namespace mk::pluginCore
{
namespace
{
/** Maps the icons' grid to pixels so that strokes have sharp edges. The drawn square is a pixel smaller
    than asked for if a centred stroke would otherwise not lie on whole pixels: then everything else can
    be a whole number of pixels away from the middle, the same on both sides. */
class IconGrid
{
public:
    explicit IconGrid (float sizeAskedFor) noexcept
    {
        const auto whole = std::max (8, int (std::floor (sizeAskedFor + 0.01f)));
        weight = std::max (1, juce::roundToInt (float (whole) * iconStrokeWeight / iconGridSize));
        const auto drawn = whole - (whole - weight) % 2;
        unit = float (drawn) / iconGridSize;
        middle = float (drawn) * 0.5f;
    }

    [[nodiscard]] float getWeight() const noexcept { return float (weight); }
    [[nodiscard]] float length (float units) const noexcept { return units * unit; }
    [[nodiscard]] float wholeLength (float units) const noexcept { return std::max (1.0f, std::round (units * unit)); }

    /** The position in pixels of the middle of a stroke. */
    [[nodiscard]] float snapped (float position) const noexcept
    {
        return middle + std::round ((position - iconGridSize * 0.5f) * unit);
    }

    [[nodiscard]] float exact (float position) const noexcept
    {
        return middle + (position - iconGridSize * 0.5f) * unit;
    }

private:
    int weight = 1;
    float unit = 1.0f;
    float middle = 0.0f;
};

[[nodiscard]] juce::Path makeLine (const IconMark& mark, const IconGrid& grid)
{
    juce::Path path;

    for (size_t i = 0; i + 1 < mark.numValues; i += 2)
    {
        const auto free = mark.kind == IconMark::Kind::diagonal;
        const auto x = free ? grid.exact (mark.values[i]) : grid.snapped (mark.values[i]);
        const auto y = free ? grid.exact (mark.values[i + 1]) : grid.snapped (mark.values[i + 1]);

        if (i == 0)
            path.startNewSubPath (x, y);
        else
            path.lineTo (x, y);
    }

    if (mark.kind == IconMark::Kind::polygon)
        path.closeSubPath();

    return path;
}

[[nodiscard]] juce::Path makeRound (const IconMark& mark, const IconGrid& grid)
{
    const auto x = grid.snapped (mark.values[0]);
    const auto y = grid.snapped (mark.values[1]);
    const auto radius = grid.wholeLength (mark.values[2]);
    juce::Path path;

    if (mark.kind == IconMark::Kind::circle)
        path.addEllipse (x - radius, y - radius, 2.0f * radius, 2.0f * radius);
    else
        path.addCentredArc (x,
                            y,
                            radius,
                            radius,
                            0.0f,
                            juce::degreesToRadians (mark.values[3]),
                            juce::degreesToRadians (mark.values[4]),
                            true);

    return path;
}

[[nodiscard]] juce::Path makeBox (const IconMark& mark, const IconGrid& grid)
{
    const auto x = grid.snapped (mark.values[0]);
    const auto y = grid.snapped (mark.values[1]);
    juce::Path path;
    path.addRoundedRectangle (x,
                              y,
                              grid.snapped (mark.values[0] + mark.values[2]) - x,
                              grid.snapped (mark.values[1] + mark.values[3]) - y,
                              grid.length (mark.values[4]));
    return path;
}

void addStroke (juce::Path& icon, const juce::Path& line, float weight)
{
    juce::Path outline;
    juce::PathStrokeType (weight, juce::PathStrokeType::curved, juce::PathStrokeType::rounded)
        .createStrokedPath (outline, line);
    icon.addPath (outline);
}

/** Draws a filled block as one wide stroke, so that its outline has the same direction as all others and
    overlaps are not cut out. */
void addBlock (juce::Path& icon, const IconMark& mark, const IconGrid& grid)
{
    const auto width = std::max (grid.getWeight(), grid.wholeLength (mark.values[2]));
    const auto sameParity = int (width) % 2 == int (grid.getWeight()) % 2 ? width : width + 1.0f;
    const auto x = grid.snapped (mark.values[0] + mark.values[2] * 0.5f);
    juce::Path line, outline;
    line.startNewSubPath (x, grid.snapped (mark.values[1]));
    line.lineTo (x, grid.snapped (mark.values[1] + mark.values[3]) + grid.getWeight() * 0.5f);
    juce::PathStrokeType (sameParity, juce::PathStrokeType::mitered, juce::PathStrokeType::butt)
        .createStrokedPath (outline, line);
    icon.addPath (outline);
}

void addMark (juce::Path& icon, const IconMark& mark, const IconGrid& grid)
{
    switch (mark.kind)
    {
        case IconMark::Kind::line:
        case IconMark::Kind::diagonal:
        case IconMark::Kind::polygon: addStroke (icon, makeLine (mark, grid), grid.getWeight()); break;
        case IconMark::Kind::circle:
        case IconMark::Kind::arc: addStroke (icon, makeRound (mark, grid), grid.getWeight()); break;
        case IconMark::Kind::box: addStroke (icon, makeBox (mark, grid), grid.getWeight()); break;
        case IconMark::Kind::block: addBlock (icon, mark, grid); break;

        case IconMark::Kind::dot:
        {
            const auto radius = std::max (grid.getWeight() * 0.6f, grid.length (mark.values[2]));
            icon.addEllipse (juce::Rectangle<float> (2.0f * radius, 2.0f * radius)
                                 .withCentre ({ grid.snapped (mark.values[0]), grid.snapped (mark.values[1]) }));
            break;
        }
    }
}
} // namespace

juce::Path makeIconPath (Icon icon, float size)
{
    const IconGrid grid (size);
    juce::Path path;

    for (const auto& mark : getIconArt (icon))
        addMark (path, mark, grid);

    // Two corners without an area fill nothing, but extend the path's bounds to the whole grid.
    path.startNewSubPath (0.0f, 0.0f);
    path.startNewSubPath (size, size);
    return path;
}

void drawIcon (juce::Graphics& g, Icon icon, juce::Rectangle<float> area, juce::Colour colour)
{
    const auto side = std::min (area.getWidth(), area.getHeight());

    if (side <= 0.0f)
        return;

    const auto scale = g.getInternalContext().getPhysicalPixelScaleFactor();
    const auto pixels = std::floor (side * scale + 0.01f);
    const auto left = std::round ((area.getCentreX() * scale) - pixels * 0.5f);
    const auto top = std::round ((area.getCentreY() * scale) - pixels * 0.5f);

    g.setColour (colour);
    g.fillPath (makeIconPath (icon, pixels), juce::AffineTransform::translation (left, top).scaled (1.0f / scale));
}

} // namespace mk::pluginCore
