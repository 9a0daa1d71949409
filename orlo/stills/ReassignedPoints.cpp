// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ReassignedPoints.h"

#include "OldShifts.h"
#include "StillPlan.h"

#include "orlo/analysis/ColumnSettings.h"

#include <cmath>

namespace mk::orlo
{

ReassignedPoints::ReassignedPoints (const StillRequest& shown) : request (shown), half (makeStillPlan (shown).getHalf())
{
    // The window's last sample is always zero, so a hop of one sample less replaces everything in it.
    analysis.window.windowLength = request.hop.windowSize - 1;
    analysis.enhanced = true;
    analysis.hop = 2 * half;
    analysis.pointsKept = request.pointsKept;
    analyser.configure (analysis.window);

    if (request.otherSource != nullptr)
    {
        otherAnalyser = std::make_unique<SpectralAnalyser>();
        otherAnalyser->configure (analysis.window);
    }

    samples.resize (2 * size_t (half));
}

void ReassignedPoints::analyse (std::int64_t centre)
{
    points.clear();
    addPoints (*request.source, analyser, centre);

    if (otherAnalyser != nullptr)
        addPoints (*request.otherSource, *otherAnalyser, centre);
}

void ReassignedPoints::addPoints (SampleSource& source, SpectralAnalyser& itsAnalyser, std::int64_t centre)
{
    source.read (centre - half, samples);
    itsAnalyser.process (samples.data(), analysis, request.hop.sampleRate, frame);
    clearOldShifts (frame);

    const auto range = makeColumnSettings (
        frame.format, { request.minFreqFraction, request.maxFreqFraction, 0.0f, 0.0f, request.height });
    const auto binWidth = range.getBinWidth();

    // As the picture selects its points; a NaN fails each comparison.
    for (size_t k = 1; k < frame.size(); ++k)
    {
        const auto bin = frame[k];
        const auto hertz = bin.freqShift + binWidth * float (k);

        if (bin.magnitude > silenceMagnitude && std::abs (bin.timeShift) <= float (half)
            && std::abs (bin.freqShift) < binWidth && hertz > range.minHz && hertz < range.maxHz)
            points.push_back ({ double (centre) + 0.5 + double (bin.timeShift),
                                double (hertz),
                                decibelsForMagnitude (bin.magnitude) });
    }
}

} // namespace mk::orlo
