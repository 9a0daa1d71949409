// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FrameProducer.h"

#include <algorithm>

namespace mk::orlo::render
{
namespace
{
// Large enough that the threads seldom wait for each other, small enough that the progress bar moves.
constexpr int mostSamplesInBatch = 131072;
constexpr int mostFramesInBatch = 48;
constexpr size_t numBatches = 3;
} // namespace

FrameProducer::FrameProducer (AudioSource& audio,
                              const AnalysisSettings& analysisSettings,
                              const RenderPlan& renderPlan)
    : source (audio),
      settings (analysisSettings),
      plan (renderPlan),
      framesPerBatch (std::clamp (mostSamplesInBatch / plan.analysis.samplesPerFrame, 1, mostFramesInBatch)),
      samples (size_t (framesPerBatch) * size_t (plan.analysis.samplesPerFrame)),
      spare (numBatches),
      thread ([this] { run(); })
{
}

FrameProducer::~FrameProducer()
{
    {
        const std::lock_guard lock (mutex);
        stopRequested = true;
    }

    changed.notify_all();
    thread.join();
}

bool FrameProducer::next (std::vector<Frame>& batch)
{
    {
        std::unique_lock lock (mutex);
        changed.wait (lock, [this] { return ! ready.empty() || finished; });

        if (ready.empty())
        {
            if (error != nullptr)
                std::rethrow_exception (error);

            return false;
        }

        spare.push_back (std::move (batch));
        batch = std::move (ready.front());
        ready.pop_front();
    }

    changed.notify_all();
    return true;
}

//==============================================================================
void FrameProducer::run()
{
    try
    {
        analyser.configure (settings.window);

        auto position = plan.feedStart;
        std::vector<Frame> batch;

        for (auto remaining = plan.leadFrames + plan.getNumPictureFrames(); remaining > 0;)
        {
            if (! waitForSpare (batch))
                return;

            const auto numFrames = int (std::min<std::int64_t> (framesPerBatch, remaining));
            fill (batch, position, numFrames);
            deliver (batch);

            position += std::int64_t (numFrames) * plan.analysis.samplesPerFrame;
            remaining -= numFrames;
        }

        finish (nullptr);
    }
    catch (...)
    {
        finish (std::current_exception());
    }
}

void FrameProducer::fill (std::vector<Frame>& batch, std::int64_t position, int numFrames)
{
    const auto numSamples = numFrames * plan.analysis.samplesPerFrame;
    source.read (position, std::span (samples).first (size_t (numSamples)));
    batch.resize (size_t (numFrames));

    const juce::ScopedNoDenormals noDenormals;
    const auto* hop = samples.data();

    for (auto& frame : batch)
    {
        analyser.process (hop, settings, source.getSampleRate(), frame);
        hop += plan.analysis.samplesPerFrame;
    }
}

bool FrameProducer::waitForSpare (std::vector<Frame>& batch)
{
    std::unique_lock lock (mutex);
    changed.wait (lock, [this] { return ! spare.empty() || stopRequested; });

    if (stopRequested)
        return false;

    batch = std::move (spare.front());
    spare.pop_front();
    return true;
}

void FrameProducer::deliver (std::vector<Frame>& batch)
{
    {
        const std::lock_guard lock (mutex);
        ready.push_back (std::move (batch));
    }

    changed.notify_all();
}

void FrameProducer::finish (std::exception_ptr failure)
{
    {
        const std::lock_guard lock (mutex);
        finished = true;
        error = std::move (failure);
    }

    changed.notify_all();
}

} // namespace mk::orlo::render
