// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** A ring of columns as one image, twice as wide as the part shown, and the next column to write. */
struct RingImage
{
    juce::Image image;
    int writeX = 0;
};

/** Copies the old ring into a new, black one, whose image has its size already: columns keep their width unless the
    ring's width is exactly doubled or halved, rows are stretched. In Scroll the newest columns stay just before the
    write position; in Static the sweep keeps its position. */
void carryOver (const RingImage& old, RingImage& target, bool scroll);

} // namespace mk::orlo
