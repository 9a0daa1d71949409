// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "LevelGrid.h"
#include "StillMemory.h"
#include "StillRequest.h"
#include "orlo/analysis/ColourMap.h"

#include <juce_graphics/juce_graphics.h>

#include <memory>
#include <span>

namespace mk::orlo
{

/** How the levels of a still picture become colours. */
struct StillColours
{
    float floorDb = -100.0f; /**< The levels of 0 and of 1, in decibels; a floor above the ceiling inverts. */
    float ceilingDb = 0.0f;
    std::shared_ptr<const ColourMap> map;
};

/** A finished still picture: the level of every pixel in decibels, from which levels and colours follow without another
    analysis. Immutable once it has been handed out, so any thread may read it. Of several points or columns in a pixel
    it has the loudest, also where the floor is above the ceiling. */
class StillPicture
{
public:
    /** A picture of what the request says. Its levels have no values yet. Allocates.
        @param isCoarse  whether a finer picture of the same request follows
        @param memory    where its memory comes from */
    StillPicture (const StillRequest& request, bool isCoarse, StillMemory& memory);

    /** What it shows; the source is the request's. */
    [[nodiscard]] const StillRequest& getRequest() const noexcept { return request; }
    [[nodiscard]] bool isCoarse() const noexcept { return coarse; }

    [[nodiscard]] int getWidth() const noexcept { return request.width; }
    [[nodiscard]] int getHeight() const noexcept { return request.height; }

    /** The levels of a row, 0 the topmost, from left to right: decibels, silenceDb where there is nothing. */
    [[nodiscard]] std::span<const float> getRow (int y) const noexcept;
    [[nodiscard]] std::span<float> getRow (int y) noexcept;

    [[nodiscard]] float getDecibels (int x, int y) const noexcept { return getRow (y)[size_t (x)]; }

    /** The level 0 .. 1 of a number of decibels, as the live picture computes it. */
    [[nodiscard]] static float levelFor (float decibels, float floorDb, float ceilingDb) noexcept;

    /** All levels 0 .. 1, for files. Allocates. */
    [[nodiscard]] LevelGrid getLevels (float floorDb, float ceilingDb) const;

    /** Colours the pixels of some rows, 0 the topmost, into an image of the picture's size of the format RGB or ARGB.
        Any thread that alone writes these rows. No allocation. */
    void paint (const StillColours& colours, juce::Image::BitmapData& image, int firstRow, int endRow) const;

    /** The same into an image of the picture's width and any height: the first row goes into the given line. */
    void paint (const StillColours& colours,
                juce::Image::BitmapData& image,
                int firstRow,
                int endRow,
                int firstLine) const;

    /** The whole picture as an opaque image. Allocates. */
    [[nodiscard]] juce::Image paint (const StillColours& colours) const;

private:
    const StillRequest request;
    const bool coarse;
    const StillMemory::Block decibels;
};

} // namespace mk::orlo
