// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "PointPlotter.h"
#include "StillPlan.h"
#include "orlo/analysis/ClassicColumnMapper.h"
#include "orlo/analysis/SpectralAnalyser.h"

#include <optional>
#include <span>

namespace mk::orlo
{

/** A run of samples, and where it starts. */
struct SampleRun
{
    std::int64_t start = 0;
    std::span<const float> samples;
    std::span<const float> others; /**< Of the second signal, as many; empty if there is none. */
};

/** Makes frames of a still picture and raises its pixels by them. What a frame adds depends on its samples only, whichever
    frames were made before. One thread at a time. */
class StillRenderer
{
public:
    /** The scale must have the request's range, and must outlive the renderer unchanged; several may share it.
        Allocates. */
    StillRenderer (const StillPlan& plan, const StillRequest& request, const FrequencyScale& scale);

    /** Starts a run of frames with growing centres. The samples must stay until finishRun().
        @param own  the columns that no other thread raises meanwhile */
    void startRun (SampleRun run, OwnColumns own) noexcept;

    /** Adds a frame of the run, whose window the samples must contain. Allocates at the first frame only. */
    void add (std::int64_t column, int part, MagnitudeGrid& grid);

    /** Adds what has been put off. */
    void finishRun (MagnitudeGrid& grid) noexcept;

private:
    void moveWindowTo (std::int64_t centre);
    void plotPoints (const Frame& reassigned, std::int64_t centre, MagnitudeGrid& grid);
    void addMagnitudes (std::int64_t column, MagnitudeGrid& grid);

    const StillPlan plan;
    const ShownRange range;
    const HopSettings hop;
    const FrequencyScale& scale;

    SpectralAnalyser analyser;
    std::optional<SpectralAnalyser> otherAnalyser; // of the second signal, if there is one
    AnalysisSettings analysis;
    Frame frame, otherFrame;

    PointPlotter points;
    ClassicColumnMapper bins;
    Column newest, merged;         // of one frame, and of those of a column
    std::int64_t mergedColumn = 0; // which column it is
    bool hasMerged = false;        // whether it has anything

    SampleRun run;
    OwnColumns own;
    std::int64_t windowEnd = 0; // the sample after the newest one in the window
    bool isWindowFilled = false;
};

} // namespace mk::orlo
