// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** A picture that SpectrogramRing has copied out, and what it needs to know to bring it up to date. */
struct Snapshot
{
    juce::Image image;

    // Of the ring, when the image was copied.
    int numRebuilds = -1; // never
    juce::int64 numColumns = 0;
    bool scroll = false;
};

} // namespace mk::orlo
