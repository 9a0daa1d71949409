// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <vector>

namespace mk::orlo
{

/** What the analysis knows about one transform bin of one frame. */
struct FrameBin
{
    float magnitude = 0.0f; /**< Linear amplitude; a full-scale sine on the bin reads 1. */
    float timeShift = 0.0f; /**< Samples from the centre of the window, later is positive. */
    float freqShift = 0.0f; /**< Hertz from the centre of the bin, higher is positive. */
};

/** One frame: the bins 0 .. fftSize / 2 of one analysis window. */
using Frame = std::vector<FrameBin>;

} // namespace mk::orlo
