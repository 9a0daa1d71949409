// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/stills/StillPicture.h"

#include <functional>

namespace mk::orlo
{

/** Writes the levels as a NumPy array file (version 1.0): float32 in decibels, rows by columns in C order, row 0 the
    topmost. Failed writes are reported by the stream only. Any thread. */
void writeLevels (const StillPicture& picture, juce::OutputStream& stream);

/** Writes the reassigned points that the picture of a request is drawn from, also if it is a Classic one, as text: a
    head, and a line for each with its time in seconds from the range's start, its frequency in hertz and its level in
    decibels, such as "0.012345,440.021,-23.41". The windows come in the order of time; the points of two windows may
    overlap. Any thread. Throws what the request's source throws.

    @param lowestDecibels  quieter points are left out
    @param progress        gets the share that is done, 0 .. 1; if it returns false, the rest is left out
    @return                whether all is written */
bool writePoints (const StillRequest& request,
                  float lowestDecibels,
                  juce::OutputStream& stream,
                  const std::function<bool (double done)>& progress);

} // namespace mk::orlo
