// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/FFTProcessor.h"
#include "tests/support/Signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace mk::orlo::test
{

/** A worker without its thread. */
class WorkerWithoutThread : public testing::Test
{
protected:
    void configure (int windowLength, int hop, int paddingMode = 0, WindowType type = WindowType::hann)
    {
        worker.setPendingConfig ({ windowLength, paddingMode, int (type) });
        worker.setHop (hop);
        worker.processAvailable();
    }

    /** Returns all frames of the samples, analysed in blocks small enough for the ring of frames. */
    [[nodiscard]] std::vector<Frame> analyse (const Samples& samples, int blockSize = 512)
    {
        std::vector<Frame> frames;

        for (size_t start = 0; start < samples.size(); start += size_t (blockSize))
        {
            worker.pushSamples (samples.data() + start, int (std::min (size_t (blockSize), samples.size() - start)));
            worker.processAvailable();

            for (Frame frame; worker.popFrame (frame);)
                frames.push_back (frame);
        }

        return frames;
    }

    FFTProcessor worker;
};

} // namespace mk::orlo::test
