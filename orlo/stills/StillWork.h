// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "FrameOrder.h"
#include "MagnitudeGrid.h"
#include "StillPicture.h"
#include "StillPool.h"
#include "StillRenderer.h"

#include <atomic>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>

namespace mk::orlo
{

/** One still picture that is being made, slice by slice, by any number of threads.

    The work has phases: the frames of every eighth column and the coarse picture of them, if the whole takes long, then
    the other frames and the picture. A phase begins when all threads have finished the one before. The picture does not
    depend on the number of threads, nor on which thread makes what.
*/
class StillWork final : public StillJob
{
public:
    /** Called by whichever thread has finished it, at most twice, the coarse picture first. Must not throw. */
    using OnPicture = std::function<void (std::shared_ptr<const StillPicture>)>;

    /** Called once instead of that with the reason, if the picture cannot be finished. Must not throw. */
    using OnFailure = std::function<void (std::exception_ptr)>;

    /** Whether a coarse picture comes first. */
    enum class Coarse
    {
        ifSlow, /**< If the whole takes longer than about 100 ms. */
        never   /**< Frames are made from left to right, so that the source is read only once and in order. */
    };

    /** Any thread. Prepares the work. Throws std::bad_alloc.
        @param scale   of the request's rows, see makeStillScale()
        @param memory  where that of the picture comes from */
    StillWork (const StillRequest& request,
               std::shared_ptr<const FrequencyScale> scale,
               std::shared_ptr<StillMemory> memory,
               Coarse coarse,
               OnPicture onPicture,
               OnFailure onFailure);

    /** Any thread. */
    ~StillWork() override;

    /** Any thread. Makes all threads leave within a frame. Neither callback is called any more, except by a thread that
        is calling it already. */
    void cancel() noexcept { finished.store (true, std::memory_order_relaxed); }

    /** Any thread. The share of the frames that have been begun, 0 .. 1. */
    [[nodiscard]] double getProgress() const noexcept;

    [[nodiscard]] bool hasWork() const noexcept override;
    Outcome run() noexcept override;
    [[nodiscard]] bool isFinished() const noexcept override { return finished.load (std::memory_order_acquire); }

private:
    /** The frames of an order, or the pixels of a picture. */
    struct Phase
    {
        std::optional<FrameOrder> order; // none for pixels
        bool isCoarse;
        std::int64_t numItems; // frames or strips of pixels
        std::int64_t itemsPerSlice;
    };

    /** What a thread works with, and leaves to the next one. */
    struct Engine
    {
        std::unique_ptr<StillRenderer> renderer;
        std::vector<float> samples, others;
    };

    /** Items of the open phase that one thread does. */
    struct Slice
    {
        std::int64_t first = 0, end = 0;
        std::unique_ptr<StillRenderer> renderer;
        std::vector<float> samples, others; // of the first and of the second signal
        std::int64_t firstSample = 0;
    };

    [[nodiscard]] bool takeSlice (Slice& slice);
    void addFrames (FrameOrder::Which which);
    void addPixels (bool isCoarse);
    void readSamples (const FrameOrder& order, Slice& slice);
    void makeFrames (Slice& slice);
    void makePixels (const Slice& slice);
    [[nodiscard]] Outcome completeSlice (Slice& slice);
    void openPhase (size_t index);
    void fail (std::exception_ptr error) noexcept;

    const StillRequest request;
    const StillPlan plan;
    const OnPicture onPicture;
    const OnFailure onFailure;
    const std::shared_ptr<const FrequencyScale> scale;
    const std::shared_ptr<StillMemory> memory;
    MagnitudeGrid grid;
    std::vector<Phase> phases;
    std::int64_t numFrames = 0;            // of all phases
    std::shared_ptr<StillPicture> picture; // made in the phase, if it makes one; changed between phases only
    std::atomic<size_t> phaseIndex { 0 };  // the same

    std::mutex mutex;                            // guards the members below, and the source
    std::int64_t nextItem = 0, numItemsDone = 0; // of the phase
    std::vector<Engine> renderers;               // those that no thread uses
    std::vector<float> tail, otherTail;          // the end of the samples that were read last
    std::int64_t tailStart = 0;

    std::atomic<bool> open { true }; // whether the phase has slices left
    std::atomic<bool> finished { false };
    std::atomic<std::int64_t> numFramesBegun { 0 };
};

} // namespace mk::orlo
