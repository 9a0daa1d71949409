// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** A copy of the picture, and what SpectrogramRing has to know to bring it up to date. */
struct Snapshot
{
    juce::Image image;

    // The ring's counters when the image was copied.
    int numRebuilds = -1; // not copied yet
    juce::int64 numColumns = 0;
    bool scroll = false;
};

} // namespace mk::orlo
