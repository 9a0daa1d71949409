// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SectionRenderer.h"

namespace mk::orlo::render
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
    const Frame blank;

    if (warmUp > 0)
        fillWindow (samples.first (warmUp));

    ColumnReducer reducer (pixels, section.firstFrame, section.endFrame, sink);
    const auto* hop = samples.data() + warmUp;

    for (auto i = section.firstFrame - sections.leadFrames; i < section.endFrame; ++i, hop += analysis.hop)
    {
        if (! goOn())
            return false;

        // Bins too quiet for reassignment keep the shifts that the frame had, which must not be those of whatever
        // frame this thread has made before. A blank frame grows again without allocating, and has no shifts.
        frame = blank;
        analyser.process (hop, analysis, sampleRate, frame);
        const auto& column = maker.make (frame);

        if (i >= section.firstFrame)
            reducer.add (column);
    }

    return true;
}

} // namespace mk::orlo::render
