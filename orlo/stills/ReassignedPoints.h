// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "StillRequest.h"

#include "orlo/analysis/SpectralAnalyser.h"

#include <vector>

namespace mk::orlo
{

/** A point of the sound by its own frequency and time, which reassignment finds, and not by those of bin and window. */
struct ReassignedPoint
{
    double sample;  /**< Counted as the request's. */
    double hertz;   /**< Within the request's range. */
    float decibels; /**< Above silenceDb. */
};

/** Lists the reassigned points of windows of a request's sound: the numbers that the picture is drawn from. In Classic,
    too, the windows are reassigned. One thread at a time. */
class ReassignedPoints
{
public:
    /** Allocates. */
    explicit ReassignedPoints (const StillRequest& request);

    /** Makes the points of the window that is centred at a sample. Throws what the request's source throws. */
    void analyse (std::int64_t centre);

    /** The points of the newest window, by rising bin; if the request has two signals, those of both, one after the
        other. */
    [[nodiscard]] const std::vector<ReassignedPoint>& get() const noexcept { return points; }

private:
    void addPoints (SampleSource& source, SpectralAnalyser& analyser, std::int64_t centre);

    const StillRequest request;
    const int half; // of the window, samples
    SpectralAnalyser analyser;
    std::unique_ptr<SpectralAnalyser> otherAnalyser; // if there is another signal
    AnalysisSettings analysis;
    Frame frame;
    std::vector<float> samples;
    std::vector<ReassignedPoint> points;
};

} // namespace mk::orlo
