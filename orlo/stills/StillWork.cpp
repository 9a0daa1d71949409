// SPDX-License-Identifier: AGPL-3.0-or-later
#include "StillWork.h"

#include "StillPixels.h"

#include <juce_audio_basics/juce_audio_basics.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace mk::orlo
{
namespace
{
// Work is counted in samples that are transformed. Threads end a phase at different times, at most a slice apart.
constexpr std::int64_t workPerSlice = 800'000;
constexpr std::int64_t fewestSlices = 16;

// A megabyte of samples.
constexpr double samplesPerSlice = 262'144.0;

// About 100 ms for one core of a usual machine.
constexpr std::int64_t workWorthACoarsePicture = 32'000'000;

[[nodiscard]] std::int64_t getWorkOfFrame (const StillPlan& plan, const StillRequest& request) noexcept
{
    const auto numTransforms = ! request.hop.enhanced ? 1 : request.pointsKept == PointsKept::all ? 3 : 4;
    return std::int64_t (plan.windowLength) * numTransforms * (request.otherSource != nullptr ? 2 : 1);
}
} // namespace

StillWork::StillWork (const StillRequest& stillRequest,
                      std::shared_ptr<const FrequencyScale> rowScale,
                      std::shared_ptr<StillMemory> memoryOfPictures,
                      Coarse coarse,
                      OnPicture pictureSink,
                      OnFailure failureSink)
    : request (stillRequest),
      plan (makeStillPlan (request)),
      onPicture (std::move (pictureSink)),
      onFailure (std::move (failureSink)),
      scale (std::move (rowScale)),
      memory (std::move (memoryOfPictures)),
      grid (plan.numColumns, request.height, *memory)
{
    const auto numAll = FrameOrder (plan, FrameOrder::Which::all).getNumFrames();

    if (coarse == Coarse::ifSlow && numAll * getWorkOfFrame (plan, request) > workWorthACoarsePicture)
    {
        addFrames (FrameOrder::Which::everyEighth);
        addPixels (true);
        addFrames (FrameOrder::Which::others);
    }
    else
    {
        addFrames (FrameOrder::Which::all);
    }

    addPixels (false);
}

StillWork::~StillWork() = default;

void StillWork::addFrames (FrameOrder::Which which)
{
    const FrameOrder order (plan, which);
    const auto distance = plan.samplesPerColumn / plan.framesPerColumn
                          * (which == FrameOrder::Which::everyEighth ? FrameOrder::coarseness : 1);
    const auto bySamples = std::int64_t (samplesPerSlice / distance);
    const auto byWork = workPerSlice / getWorkOfFrame (plan, request);
    const auto byThreads = order.getNumFrames() / fewestSlices;
    const auto perSlice = std::max<std::int64_t> (1, std::min ({ bySamples, byWork, byThreads }));

    phases.push_back ({ order, false, order.getNumFrames(), perSlice });
    numFrames += order.getNumFrames();
}

void StillWork::addPixels (bool isCoarse)
{
    phases.push_back ({ std::nullopt, isCoarse, getNumStrips (request.width), 1 });
}

double StillWork::getProgress() const noexcept
{
    return double (numFramesBegun.load (std::memory_order_relaxed)) / double (std::max<std::int64_t> (1, numFrames));
}

bool StillWork::hasWork() const noexcept { return open.load (std::memory_order_relaxed) && ! isFinished(); }

//==============================================================================
StillJob::Outcome StillWork::run() noexcept
{
    const juce::ScopedNoDenormals noDenormals;

    try
    {
        Slice slice;

        if (! takeSlice (slice))
            return Outcome::nothingToDo;

        if (phases[phaseIndex.load (std::memory_order_relaxed)].order)
            makeFrames (slice);
        else
            makePixels (slice);

        return isFinished() ? Outcome::opened : completeSlice (slice);
    }
    catch (...)
    {
        fail (std::current_exception());
        return Outcome::opened;
    }
}

bool StillWork::takeSlice (Slice& slice)
{
    const std::lock_guard lock (mutex);
    const auto& phase = phases[phaseIndex.load (std::memory_order_relaxed)];

    if (isFinished() || nextItem >= phase.numItems)
        return false;

    slice.first = nextItem;
    slice.end = std::min (nextItem + phase.itemsPerSlice, phase.numItems);
    nextItem = slice.end;
    open.store (nextItem < phase.numItems, std::memory_order_relaxed);

    if (! phase.order)
        return true;

    if (! renderers.empty())
    {
        slice.renderer = std::move (renderers.back().renderer);
        slice.samples = std::move (renderers.back().samples);
        slice.others = std::move (renderers.back().others);
        renderers.pop_back();
    }

    readSamples (*phase.order, slice);
    return true;
}

void StillWork::readSamples (const FrameOrder& order, Slice& slice)
{
    const auto first = order.getPlace (slice.first);
    const auto last = order.getPlace (slice.end - 1);
    const auto start = plan.getCentre (first.column, first.part) - plan.getHalf();
    const auto end = plan.getCentre (last.column, last.part) + plan.getHalf();

    // Each sample is read only once in a phase.
    const auto tailEnd = tailStart + std::int64_t (tail.size());
    const auto numKnown = start >= tailStart ? std::clamp<std::int64_t> (tailEnd - start, 0, end - start) : 0;
    const auto tailLength = std::min (2 * std::int64_t (plan.getHalf()), end - start);

    const auto read = [&] (SampleSource& source, std::vector<float>& samples, std::vector<float>& lastTail)
    {
        samples.resize (size_t (end - start));
        std::copy_n (lastTail.end() - numKnown, numKnown, samples.begin());
        source.read (start + numKnown, std::span (samples).subspan (size_t (numKnown)));
        lastTail.assign (samples.end() - tailLength, samples.end());
    };

    read (*request.source, slice.samples, tail);

    if (request.otherSource != nullptr)
        read (*request.otherSource, slice.others, otherTail);

    slice.firstSample = start;
    tailStart = end - tailLength;
}

void StillWork::makeFrames (Slice& slice)
{
    const auto& order = *phases[phaseIndex.load (std::memory_order_relaxed)].order;

    if (slice.renderer == nullptr)
        slice.renderer = std::make_unique<StillRenderer> (plan, request, *scale);

    auto& renderer = *slice.renderer;
    renderer.startRun ({ slice.firstSample, slice.samples, slice.others },
                       order.getOwnColumns (slice.first, slice.end));

    for (auto i = slice.first; i < slice.end && ! isFinished(); ++i)
    {
        const auto place = order.getPlace (i);
        renderer.add (place.column, place.part, grid);
        numFramesBegun.fetch_add (1, std::memory_order_relaxed);
    }

    renderer.finishRun (grid);
}

//==============================================================================
void StillWork::makePixels (const Slice& slice)
{
    for (auto i = slice.first; i < slice.end && ! isFinished(); ++i)
        fillStrip (grid, plan, int (i), *picture);
}

//==============================================================================
StillJob::Outcome StillWork::completeSlice (Slice& slice)
{
    const auto index = phaseIndex.load (std::memory_order_relaxed);
    const auto& phase = phases[index];

    {
        const std::lock_guard lock (mutex);

        if (slice.renderer != nullptr)
            renderers.push_back ({ std::move (slice.renderer), std::move (slice.samples), std::move (slice.others) });

        numItemsDone += slice.end - slice.first;

        if (numItemsDone < phase.numItems)
            return Outcome::done;
    }

    // All others have nothing to do until the next phase is opened.
    if (! phase.order && ! isFinished())
        onPicture (std::exchange (picture, nullptr));

    openPhase (index + 1);
    return Outcome::opened;
}

void StillWork::openPhase (size_t index)
{
    if (index == phases.size())
    {
        finished.store (true, std::memory_order_release);
        return;
    }

    if (! phases[index].order)
        picture = std::make_shared<StillPicture> (request, phases[index].isCoarse, *memory);

    const std::lock_guard lock (mutex);
    phaseIndex.store (index, std::memory_order_relaxed);
    nextItem = 0;
    numItemsDone = 0;
    tail.clear();
    otherTail.clear();
    open.store (true, std::memory_order_relaxed);
}

void StillWork::fail (std::exception_ptr error) noexcept
{
    if (! finished.exchange (true, std::memory_order_acq_rel))
        onFailure (std::move (error));
}

} // namespace mk::orlo
