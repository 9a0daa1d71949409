// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <set>

namespace mk::orlo::test
{

/** A screenshot, with measurements of what it shows. */
class Picture
{
public:
    /** Reads a PNG. Without one the picture has no size. */
    explicit Picture (const juce::File& file);

    /** The part within the bounds, as a picture of its own. */
    [[nodiscard]] Picture getPart (juce::Rectangle<int> bounds) const;

    [[nodiscard]] int getWidth() const noexcept { return image.getWidth(); }
    [[nodiscard]] int getHeight() const noexcept { return image.getHeight(); }

    /** 0 to 255, the strongest of the three colours. */
    [[nodiscard]] int getBrightness (int x, int y) const;

    /** Columns in which any row from top to bottom - 1 is not black. */
    [[nodiscard]] int countPaintedColumns (int top, int bottom) const;

    /** The mean over the columns from left to right - 1 of the brightest pixel within reach of a row. */
    [[nodiscard]] double getLineBrightness (int row, int reach, int left, int right) const;

    /** All colours that occur, as ARGB. */
    [[nodiscard]] std::set<juce::uint32> getColours() const;

private:
    explicit Picture (juce::Image imageToAsk);

    const juce::Image image;
};

} // namespace mk::orlo::test
