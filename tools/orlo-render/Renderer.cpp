// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Renderer.h"

#include "ColumnReducer.h"
#include "FrameProducer.h"
#include "RenderError.h"
#include "orlo/analysis/ColumnMapper.h"
#include "orlo/analysis/FrequencyScale.h"

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

/** Turns frames into columns that can be merged by maximum, and merged columns into levels. */
class ColumnMaker
{
public:
    explicit ColumnMaker (const RenderSettings& settings)
        : range { settings.minFreqFraction,
                  settings.maxFreqFraction,
                  settings.floorDb,
                  settings.ceilingDb,
                  settings.height },
          // The logarithm is most of the work of a Classic column. A larger magnitude gives a higher level, so
          // magnitudes can be merged first and only the maxima need a logarithm. Not in Enhanced, which takes few
          // logarithms, nor with the floor above the ceiling, where a larger magnitude gives a lower level.
          mergesMagnitudes (! settings.hop.enhanced && settings.floorDb < settings.ceilingDb),
          column (size_t (settings.height))
    {
        scale.setScaleType (settings.scaleType);
    }

    [[nodiscard]] const Column& make (const Frame& frame)
    {
        const auto columnSettings = makeColumnSettings (frame.format, range);

        if (mergesMagnitudes)
        {
            scale.setRange (columnSettings.minHz, columnSettings.maxHz);
            classic.fillMagnitudes (frame, columnSettings, scale, column);
        }
        else
        {
            mapper.map (frame, columnSettings, scale, column);
        }

        return column;
    }

    void finish (Column& merged) const noexcept
    {
        if (mergesMagnitudes)
            ClassicColumnMapper::magnitudesToLevels (makeColumnSettings ({}, range), merged);
    }

private:
    const ShownRange range;
    const bool mergesMagnitudes;
    FrequencyScale scale;
    ClassicColumnMapper classic;
    ColumnMapper mapper;
    Column column;
};

} // namespace

LevelGrid
    renderLevels (AudioSource& source, const RenderPlan& plan, const RenderSettings& settings, const Progress& progress)
{
    LevelGrid grid (plan.width, settings.height);
    ColumnMaker maker (settings);

    ColumnReducer reducer (plan.getNumPictureFrames(),
                           plan.analysis.framesPerColumn,
                           plan.width,
                           [&] (int x, Column& merged)
                           {
                               maker.finish (merged);
                               grid.setColumn (x, merged);
                           });

    const auto numFrames = plan.leadFrames + plan.getNumPictureFrames();
    FrameProducer producer (source, makeAnalysisSettings (plan, settings), plan);
    std::int64_t frame = 0;

    for (std::vector<Frame> batch; producer.next (batch);)
    {
        for (const auto& bins : batch)
        {
            // The columns before the picture's first must be made, too: in Enhanced they shift the history.
            const auto& column = maker.make (bins);

            if (frame++ >= plan.leadFrames)
                reducer.add (column);
        }

        if (! progress (double (frame) / double (numFrames)))
            throw RenderError ("interrupted", RenderError::interrupted);
    }

    return grid;
}

} // namespace mk::orlo::render
