// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillPicture.h"

#include "orlo/analysis/FrequencyScale.h"

#include <optional>

namespace mk::orlo
{

/** What is heard at a place of a still picture. */
struct StillPoint
{
    int x = 0, y = 0; /**< The pixel, row 0 on top. */
    double hertz = 0.0;
    double sample = 0.0;   /**< Counted as the request's. */
    float decibels = 0.0f; /**< silenceDb where there is nothing. */
};

/** The frequency in hertz of a row, 0 the topmost; fractions lie between rows. Limited to the scale's range. Any thread. */
[[nodiscard]] double getFrequencyOfRow (const FrequencyScale& scale, double row, int numRows) noexcept;

/** The point that a pixel shows: the frequency of its row and the time of its column's middle. Places outside of the
    picture count as its nearest pixel.
    @param scale  with the picture's range and type, see makeStillScale(). Any thread. */
[[nodiscard]] StillPoint
    getStillPoint (const StillPicture& picture, const FrequencyScale& scale, juce::Point<int> pixel) noexcept;

/** The loudest point whose pixel is at most so many pixels away; of several that are as loud, the nearest. Nothing if all
    is silence there. Any thread.
    @param radius  in pixels of the picture, 0 or more */
[[nodiscard]] std::optional<StillPoint> findStrongestPoint (const StillPicture& picture,
                                                            const FrequencyScale& scale,
                                                            juce::Point<int> pixel,
                                                            int radius) noexcept;

/** The same point by its reassigned frequency and time, which are finer than a pixel: some windows around the point are
    analysed once more, and if the loudest of their points near the pixel is about as loud, it is taken.
    Allocates, and reads the picture's source, so it throws what that throws. Takes about a millisecond. One thread at a
    time, not at the same time as others read the source, unless it allows that. */
[[nodiscard]] StillPoint refineStillPoint (const StillPicture& picture, const StillPoint& point);

} // namespace mk::orlo
