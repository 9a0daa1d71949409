// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AudioSource.h"
#include "RenderPlan.h"
#include "orlo/analysis/SpectralAnalyser.h"

#include <array>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace mk::orlo::render
{

/** Reads the audio and runs the transforms on a thread of its own, so that the next batch of frames is made
    while the previous one is turned into columns. The frames come in order, and their content does not depend
    on the threads' timing. */
class FrameProducer
{
public:
    /** Starts the thread, with the plan's hop. The source must outlive the producer and must not be used by
        others meanwhile. */
    FrameProducer (AudioSource& source, const AnalysisSettings& settings, const RenderPlan& plan);

    /** Stops the thread, which takes at most the time of one batch. */
    ~FrameProducer();

    /** [consumer] Waits for the next frames and swaps them into the batch, whose old content is reused. False
        when there are no more. Rethrows what AudioSource::read() threw. */
    bool next (std::vector<Frame>& batch);

private:
    void run();
    void fill (std::vector<Frame>& batch, std::int64_t position, int numFrames);
    [[nodiscard]] bool waitForSpare (std::vector<Frame>& batch);
    void deliver (std::vector<Frame>& batch);
    void finish (std::exception_ptr failure);

    AudioSource& source;
    const AnalysisSettings settings;
    const RenderPlan plan;
    const int framesPerBatch;
    SpectralAnalyser analyser;
    std::vector<float> samples;

    std::mutex mutex; // guards all members below
    std::condition_variable changed;
    std::deque<std::vector<Frame>> ready, spare;
    bool finished = false, stopRequested = false;
    std::exception_ptr error;

    std::thread thread;
};

} // namespace mk::orlo::render
