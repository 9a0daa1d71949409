// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo
{

/** A range of frequencies, as shares 0 .. 1 of half the sample rate. */
struct FrequencyRange
{
    double min = 0.0, max = 1.0;
};

/** The range after zooming about a point, which stays where it is as far as 0 and half the sample rate allow. On the log
    scale this is exact above 50 Hz. Any thread, no allocation.
    @param scaleType  a FrequencyScale::Type; unknown ones count as linear
    @param nyquist    half the sample rate in hertz, more than 0
    @param position   of the point, 0 at the bottom .. 1 at the top
    @param factor     of the height of the range on the scale; below 1 zooms in; not a positive number does nothing */
[[nodiscard]] FrequencyRange
    zoomFrequencies (FrequencyRange range, int scaleType, double nyquist, double position, double factor) noexcept;

/** The range moved up by a share of its height on the scale, as far as possible. Any thread, no allocation. */
[[nodiscard]] FrequencyRange
    moveFrequencies (FrequencyRange range, int scaleType, double nyquist, double share) noexcept;

} // namespace mk::orlo
