// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <functional>

namespace mk::orlo::bench
{

/** A bare FFTW transform of real samples on aligned buffers, by the fastest plan that FFTW's planner finds when it may
    take its time. Takes seconds. The samples are zeros.

    @param size  samples, a power of two */
[[nodiscard]] std::function<void()> makeBestTransform (int size);

} // namespace mk::orlo::bench
