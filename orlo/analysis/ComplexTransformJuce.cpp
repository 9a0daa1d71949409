// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ComplexTransform.h"

#include <juce_dsp/juce_dsp.h>

#include <algorithm>
#include <complex>

namespace mk::orlo
{

struct ComplexTransform::Plan
{
    explicit Plan (int size) : fft (juce::roundToInt (std::log2 (size))) {}

    juce::dsp::FFT fft;
};

ComplexTransform::ComplexTransform (int size)
    : input (size_t (size) * 2), output (size_t (size) * 2 + 2), plan (std::make_unique<Plan> (size))
{
}

ComplexTransform::~ComplexTransform() = default;

void ComplexTransform::run() noexcept
{
    using Complex = juce::dsp::Complex<float>;
    plan->fft.perform (
        reinterpret_cast<const Complex*> (input.data()), reinterpret_cast<Complex*> (output.data()), false);
    std::copy_n (output.begin(), 2, output.end() - 2);
}

void ComplexTransform::freePlanningMemory() noexcept {}

} // namespace mk::orlo
