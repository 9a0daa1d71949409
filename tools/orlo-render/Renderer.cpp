// SPDX-License-Identifier: AGPL-3.0-or-later
#include "Renderer.h"

#include "ColumnReducer.h"
#include "FrameProducer.h"
#include "RenderError.h"
#include "orlo/analysis/SpectrogramImageBuilder.h"

namespace mk::orlo::render
{
namespace
{

/** The plug-in's engine, set up as the plug-in would, without its threads. */
class Engine
{
public:
    Engine (double sampleRate, const RenderPlan& plan, const RenderSettings& settings)
    {
        auto config = worker.getCurrentConfig();
        config.windowLength = plan.windowLength;
        worker.setPendingConfig (config);
        worker.prepareToPlay (sampleRate);
        worker.hopSize.store (plan.analysis.hop, std::memory_order_relaxed);
        worker.enhanced.store (settings.hop.enhanced, std::memory_order_relaxed);
        worker.magnitudeThreshold.store (magnitudeForDecibels (juce::jmin (settings.floorDb, settings.ceilingDb)),
                                         std::memory_order_relaxed);
        worker.processAvailable(); // takes the configuration over

        builder.getFrequencyScale().setScaleType (settings.scaleType);
        builder.setMinFreqFraction (settings.minFreqFraction);
        builder.setMaxFreqFraction (settings.maxFreqFraction);
        builder.setLevelRange (settings.floorDb, settings.ceilingDb);
        builder.setRequestedSize (1, settings.height);
        builder.applyRequestedSize();
    }

    FFTProcessor worker;
    FrameClock clock;
    SpectrogramImageBuilder builder { worker, clock };
};

/** Turns frames into columns that can be merged by maximum, and merged columns into levels. */
class ColumnMaker
{
public:
    explicit ColumnMaker (SpectrogramImageBuilder& imageBuilder)
        : builder (imageBuilder),
          settings (imageBuilder.makeColumnSettings()),
          // The logarithm is most of the work of a Classic column. The louder magnitude has the higher level, so
          // it can wait until only the loudest are left. Enhanced takes few logarithms, and with the floor above
          // the ceiling the louder has the lower level.
          mergesMagnitudes (! settings.enhanced && settings.floorDb < settings.ceilingDb)
    {
        builder.getFrequencyScale().setRange (settings.minHz, settings.maxHz);
        column.resize (size_t (settings.numRows));
    }

    [[nodiscard]] const Column& make (const Frame& frame)
    {
        if (mergesMagnitudes)
            classic.fillMagnitudes (frame, settings, builder.getFrequencyScale(), column);
        else
            builder.frameToColumn (frame, column);

        return column;
    }

    void finish (Column& merged) const noexcept
    {
        if (mergesMagnitudes)
            ClassicColumnMapper::magnitudesToLevels (settings, merged);
    }

private:
    SpectrogramImageBuilder& builder;
    const ColumnSettings settings;
    const bool mergesMagnitudes;
    ClassicColumnMapper classic;
    Column column;
};

} // namespace

LevelGrid
    renderLevels (AudioSource& source, const RenderPlan& plan, const RenderSettings& settings, const Progress& progress)
{
    LevelGrid grid (plan.width, settings.height);
    Engine engine (source.getSampleRate(), plan, settings);
    ColumnMaker maker (engine.builder);

    ColumnReducer reducer (plan.getNumPictureFrames(),
                           plan.analysis.framesPerColumn,
                           plan.width,
                           [&] (int x, Column& merged)
                           {
                               maker.finish (merged);
                               grid.setColumn (x, merged);
                           });

    const auto numFrames = plan.leadFrames + plan.getNumPictureFrames();
    FrameProducer producer (source, engine.worker, plan);
    std::int64_t frame = 0;

    for (std::vector<Frame> batch; producer.next (batch);)
    {
        for (const auto& bins : batch)
        {
            // The columns before the picture's first are made all the same: in Enhanced they shift the history.
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
