// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "ColumnMaker.h"
#include "ColumnReducer.h"
#include "SectionPlan.h"
#include "orlo/analysis/SpectralAnalyser.h"

#include <functional>
#include <span>

namespace mk::orlo
{

/** Turns the samples of sections into columns of pixels. What it makes of a section depends on nothing but the
    section, whichever sections it has made before. One thread at a time, but made and destroyed on the message
    thread. */
class SectionRenderer
{
public:
    SectionRenderer (const RenderPlan& plan, const SectionPlan& sections, const RenderSettings& settings);

    /** Analyses a section and calls the sink with its parts of pixels, whose columns need finish() when all parts are
        merged. Returns false if it was stopped before the end.
        @param samples  those of the section
        @param goOn     called before each frame; returns false to stop */
    [[nodiscard]] bool render (const Section& section,
                               std::span<const float> samples,
                               const ColumnReducer::Sink& sink,
                               const std::function<bool()>& goOn);

    /** Turns the merged column of a pixel into levels, in place. Any thread. */
    void finish (Column& merged) const noexcept { maker.finish (merged); }

private:
    void fillWindow (std::span<const float> samples);

    const SectionPlan sections;
    const PixelMap pixels;
    const AnalysisSettings analysis;
    const double sampleRate;
    SpectralAnalyser analyser;
    ColumnMaker maker;
    Frame frame;
};

} // namespace mk::orlo
