// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillRenderer.h"

#include "ColumnReducer.h"
#include "OldShifts.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace mk::orlo
{

StillRenderer::StillRenderer (const StillPlan& stillPlan, const StillRequest& request, const FrequencyScale& rowScale)
    : plan (stillPlan),
      range { request.minFreqFraction, request.maxFreqFraction, 0.0f, 0.0f, request.height },
      hop (request.hop),
      scale (rowScale),
      newest (size_t (request.height)),
      merged (size_t (request.height))
{
    // All levels are kept, down to silence, so that floor and ceiling can be chosen later.
    analysis.window.windowLength = plan.windowLength;
    analysis.enhanced = hop.enhanced;
    analysis.magnitudeThreshold = 0.0f;
    analysis.pointsKept = request.pointsKept;
    analyser.configure (analysis.window);

    if (request.otherSource != nullptr)
        otherAnalyser.emplace().configure (analysis.window);
}

void StillRenderer::startRun (SampleRun newRun, OwnColumns ownColumns) noexcept
{
    run = newRun;
    own = ownColumns;
    isWindowFilled = false;
}

void StillRenderer::moveWindowTo (std::int64_t centre)
{
    // The window's last sample stays zero, so a hop of one sample less replaces everything in it.
    const auto whole = 2 * std::int64_t (plan.getHalf());
    const auto end = centre + plan.getHalf();
    const auto numNew = std::exchange (isWindowFilled, true) ? std::min (end - windowEnd, whole) : whole;
    windowEnd = end;

    analysis.hop = int (numNew);
    analyser.process (run.samples.data() + (end - numNew - run.start), analysis, hop.sampleRate, frame);

    if (otherAnalyser)
        otherAnalyser->process (run.others.data() + (end - numNew - run.start), analysis, hop.sampleRate, otherFrame);
}

void StillRenderer::add (std::int64_t column, int part, MagnitudeGrid& grid)
{
    const auto centre = plan.getCentre (column, part);
    moveWindowTo (centre);

    if (! hop.enhanced)
    {
        addMagnitudes (column, grid);
        return;
    }

    clearOldShifts (frame);
    plotPoints (frame, centre, grid);

    if (otherAnalyser)
    {
        clearOldShifts (otherFrame);
        plotPoints (otherFrame, centre, grid);
    }
}

void StillRenderer::plotPoints (const Frame& reassigned, std::int64_t centre, MagnitudeGrid& grid)
{
    const auto position = plan.getColumnPosition (centre);
    const auto ofCentre = std::floor (position);
    points.plot (reassigned,
                 makeColumnSettings (reassigned.format, range),
                 scale,
                 { std::int64_t (ofCentre),
                   float (position - ofCentre),
                   float (1.0 / plan.samplesPerColumn),
                   plan.margin,
                   plan.numColumns },
                 own,
                 grid);
}

void StillRenderer::addMagnitudes (std::int64_t column, MagnitudeGrid& grid)
{
    if (hasMerged && column != mergedColumn)
        finishRun (grid);

    // The live picture, too, takes the louder of two bins before it looks between them.
    if (otherAnalyser)
        mergeColumns (frame.magnitudes, otherFrame.magnitudes);

    auto& target = hasMerged ? newest : merged;
    bins.fillMagnitudes (frame, makeColumnSettings (frame.format, range), scale, target);

    if (std::exchange (hasMerged, true))
        mergeColumns (merged, newest);

    mergedColumn = column;
}

void StillRenderer::finishRun (MagnitudeGrid& grid) noexcept
{
    if (! std::exchange (hasMerged, false))
        return;

    const auto column = int (mergedColumn);
    const auto isOwn = own.contains (column);

    for (int y = 0; y < range.numRows; ++y)
        if (isOwn)
            grid.raiseOwn (column, y, merged[size_t (y)]);
        else
            grid.raiseShared (column, y, merged[size_t (y)]);
}

} // namespace mk::orlo
