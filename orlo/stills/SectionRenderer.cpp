// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SectionRenderer.h"

#include "OldShifts.h"

#include <juce_audio_basics/juce_audio_basics.h>

namespace mk::orlo
{
namespace
{
[[nodiscard]] AnalysisSettings makeAnalysisSettings (const RenderPlan& plan, const RenderSettings& settings)
{
    AnalysisSettings analysis;
    analysis.window.windowLength = plan.windowLength;
    analysis.hop = plan.analysis.samplesPerFrame;
    analysis.enhanced = settings.hop.enhanced;
    analysis.magnitudeThreshold = magnitudeForDecibels (juce::jmin (settings.floorDb, settings.ceilingDb));
    analysis.pointsKept = settings.pointsKept;
    return analysis;
}
} // namespace

SectionRenderer::SectionRenderer (const RenderPlan& plan,
                                  const SectionPlan& sectionPlan,
                                  const RenderSettings& settings)
    : sections (sectionPlan),
      pixels { plan.numColumns, plan.analysis.framesPerColumn, plan.width },
      analysis (makeAnalysisSettings (plan, settings)),
      sampleRate (settings.hop.sampleRate),
      maker (settings)
{
    analyser.configure (analysis.window);
}

void SectionRenderer::fillWindow (std::span<const float> samples)
{
    auto wholeWindow = analysis;
    wholeWindow.hop = int (samples.size());
    wholeWindow.enhanced = false; // nobody reads this frame
    analyser.process (samples.data(), wholeWindow, sampleRate, frame);
}

bool SectionRenderer::render (const Section& section,
                              std::span<const float> samples,
                              const ColumnReducer::Sink& sink,
                              const std::function<bool()>& goOn)
{
    const juce::ScopedNoDenormals noDenormals;
    const auto warmUp = size_t (sections.warmUpSamples);

    if (warmUp > 0)
        fillWindow (samples.first (warmUp));

    ColumnReducer reducer (pixels, section.firstFrame, section.endFrame, sink);
    const auto* hop = samples.data() + warmUp;

    for (auto i = section.firstFrame - sections.leadFrames; i < section.endFrame; ++i, hop += analysis.hop)
    {
        if (! goOn())
            return false;

        analyser.process (hop, analysis, sampleRate, frame);

        // With a higher floor these bins are silent, wherever their points would lie.
        if (analysis.enhanced && analysis.magnitudeThreshold < smallestReassignedMagnitude)
            clearOldShifts (frame);

        const auto& column = maker.make (frame);

        if (i >= section.firstFrame)
            reducer.add (column);
    }

    return true;
}

} // namespace mk::orlo
