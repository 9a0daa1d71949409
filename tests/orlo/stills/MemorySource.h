// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/stills/SampleSource.h"
#include "orlo/stills/StillRequest.h"
#include "tests/support/Signals.h"

#include <algorithm>

namespace mk::orlo::test
{

/** A signal in memory. */
class MemorySource final : public SampleSource
{
public:
    explicit MemorySource (Samples signal) : samples (std::move (signal)) {}

    void read (std::int64_t position, std::span<float> destination) override
    {
        for (auto& sample : destination)
        {
            sample = position >= 0 && position < std::int64_t (samples.size()) ? samples[size_t (position)] : 0.0f;
            ++position;
        }
    }

private:
    const Samples samples;
};

/** A request for a picture of a signal of 44.1 kHz. */
[[nodiscard]] inline StillRequest
    makeRequest (Samples signal, double start, double length, int width, int height, bool enhanced)
{
    StillRequest request;
    request.source = std::make_shared<MemorySource> (std::move (signal));
    request.start = start;
    request.length = length;
    request.width = width;
    request.height = height;
    request.hop.enhanced = enhanced;
    return request;
}

} // namespace mk::orlo::test
