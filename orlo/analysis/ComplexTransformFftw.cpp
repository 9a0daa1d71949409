// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ComplexTransform.h"

#include <fftw3.h>

#include <algorithm>
#include <mutex>

namespace mk::orlo
{
namespace
{
/** FFTW's planner is not thread-safe; executing a plan is. */
std::mutex plannerLock;

/** Guarded by plannerLock. */
int numPlans = 0;

[[nodiscard]] fftwf_complex* toComplex (float* pairs) noexcept { return reinterpret_cast<fftwf_complex*> (pairs); }
} // namespace

struct ComplexTransform::Plan
{
    /** Estimates which plan is best, in some 0.1 ms. Measuring takes 50 to 600 ms, and other plans may round otherwise,
        so that the same sound could give other pictures. Between different buffers the estimated plans are at most a
        third slower than the measured ones; in place they are up to three times as slow. */
    Plan (int size, float* input, float* output)
    {
        const std::lock_guard lock (plannerLock);
        handle = fftwf_plan_dft_1d (
            size, toComplex (input), toComplex (output), FFTW_FORWARD, FFTW_ESTIMATE | FFTW_PRESERVE_INPUT);
        ++numPlans;
    }

    ~Plan()
    {
        const std::lock_guard lock (plannerLock);
        fftwf_destroy_plan (handle);
        --numPlans;
    }

    Plan (const Plan&) = delete;
    Plan& operator= (const Plan&) = delete;

    fftwf_plan handle;
};

ComplexTransform::ComplexTransform (int size)
    : input (size_t (size) * 2),
      output (size_t (size) * 2 + 2),
      plan (std::make_unique<Plan> (size, input.data(), output.data()))
{
}

ComplexTransform::~ComplexTransform() = default;

void ComplexTransform::run() noexcept
{
    fftwf_execute (plan->handle);
    std::copy_n (output.begin(), 2, output.end() - 2);
}

void ComplexTransform::freePlanningMemory() noexcept
{
    const std::lock_guard lock (plannerLock);

    // The library invalidates every plan that exists.
    if (numPlans == 0)
        fftwf_cleanup();
}

} // namespace mk::orlo
