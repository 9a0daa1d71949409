// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** Turns a level between 0 and 1 into an opaque colour. Immutable, so that a thread may go on using a map
    that has been replaced meanwhile. */
class ColourMap
{
public:
    /** The number of entries of every map, independent of the number of its stored colours. */
    static constexpr int numEntries = 256;

    /** Builds the map of that index, see getColourList(). Allocates. Any thread. */
    explicit ColourMap (unsigned mapIndex);

    /** The index the map was built from. */
    [[nodiscard]] unsigned getMapIndex() const noexcept { return mapIndex; }

    /** The 256 colours, level 0 first. */
    [[nodiscard]] const juce::Array<juce::Colour>& getColours() const noexcept { return colours; }

    /** The same as ARGB words. */
    [[nodiscard]] const juce::Array<juce::uint32>& getPixels() const noexcept { return pixels; }

    /** The index of the entry for a level above 0; levels above 1 count as 1, and a NaN gives 0. */
    [[nodiscard]] static int entryForLevel (float level) noexcept
    {
        const auto position = juce::jmin (level, 1.0f) * float (numEntries - 1);
        return position > 0.0f ? juce::roundToInt (position) : 0;
    }

    /** The ARGB word of that entry. */
    [[nodiscard]] juce::uint32 pixelForLevel (float level) const noexcept
    {
        return pixels.getReference (entryForLevel (level));
    }

    //==============================================================================
    /** The stored colours of a map, level 0 first: 10, 256 or 2560 of them. An index of 46 or more gives
        those of magma. */
    [[nodiscard]] static juce::Array<juce::Colour> getColourList (unsigned mapIndex);

    /** The map as a linear gradient from (0, 0) to (0, 1). */
    [[nodiscard]] static juce::ColourGradient makeGradient (unsigned mapIndex);

private:
    unsigned mapIndex;
    juce::Array<juce::Colour> colours;
    juce::Array<juce::uint32> pixels;
};

} // namespace mk::orlo
