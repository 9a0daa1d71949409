// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "SampleSource.h"
#include "orlo/analysis/HopPlan.h"
#include "orlo/analysis/PointsKept.h"

#include <memory>

namespace mk::orlo
{

/** Everything that decides which levels a still picture shows, but not how they are coloured: a change of levels or
    colours needs no new picture, see StillColours. */
struct StillRequest
{
    std::shared_ptr<SampleSource> source; /**< Several pictures may read it at the same time, at any position. */

    /** Usually null; else a second signal, read like the first: of each bin and point the louder one is shown. */
    std::shared_ptr<SampleSource> otherSource;

    /** The range, in samples: column i of the width shows those from start + i * length / width on, up to the next
        column's. Fractions are possible, so that a view can move by less than a sample. The range may reach beyond the
        sound; there is silence. */
    double start = 0.0;
    double length = 0.0; /**< More than 0. */

    int width = 0, height = 0; /**< Pixels, at least 1. */

    /** Window, sample rate and mode. The speed gives the longest hop: that of the live picture. A picture that shows
        more detail than that takes shorter hops. */
    HopSettings hop;
    PointsKept pointsKept = PointsKept::all; /**< In Enhanced. */

    float minFreqFraction = 0.0f; /**< The shown range, as shares 0 .. 1 of half the sample rate. */
    float maxFreqFraction = 1.0f;
    int scaleType = 0; /**< A FrequencyScale::Type. */

    [[nodiscard]] double getSamplesPerPixel() const noexcept { return length / double (width); }
};

/** Whether both show the same, so that the picture of one is that of the other. */
[[nodiscard]] bool showsTheSame (const StillRequest& left, const StillRequest& right) noexcept;

} // namespace mk::orlo
