// SPDX-License-Identifier: AGPL-3.0-or-later
#include "AnalysisWindows.h"

#include <juce_dsp/juce_dsp.h>

#include <cmath>

namespace mk::orlo
{
namespace
{
constexpr float kaiserBeta = 5.0f;
constexpr float gaussianDeviationsInWindow = 6.0f;

void fillGaussian (std::vector<float>& plain, std::vector<float>& derivative)
{
    const auto length = plain.size();
    const auto deviation = float (length) / gaussianDeviationsInWindow;
    const auto centre = float (length - 1) * 0.5f;

    derivative.resize (length);

    for (size_t n = 0; n < length; ++n)
    {
        const auto distance = float (n) - centre;
        const auto scaled = distance / deviation;
        plain[n] = std::exp (-0.5f * scaled * scaled);
        derivative[n] = -distance / (deviation * deviation) * plain[n];
    }
}
} // namespace

std::vector<float> differentiateWindow (const std::vector<float>& window)
{
    const auto length = window.size();

    if (length < 2)
        return {};

    const auto step = (window.front() + window.back()) * 0.5f;
    const auto slope = (window.front() - window.back()) / float (length - 1);
    const auto half = int (length - 1) / 2;

    std::vector<float> levelled (length + 2, 0.0f);

    for (size_t i = 0; i < length; ++i)
        levelled[i + 1] = std::fma (-slope, float (int (i) - half), window[i] - step);

    std::vector<float> derivative (length);

    for (size_t i = 0; i < length; ++i)
        derivative[i] = slope + (levelled[i + 2] - levelled[i]) * 0.5f;

    derivative.front() += step;
    derivative.back() -= step;
    return derivative;
}

void AnalysisWindows::rebuild (int length, int type)
{
    const auto size = size_t (juce::jmax (2, length));
    plain.resize (size);
    ramp.resize (size);
    rampDerivative.resize (size);

    if (type < int (WindowType::gaussian))
    {
        using Function = juce::dsp::WindowingFunction<float>;
        Function::fillWindowingTables (plain.data(), size, Function::WindowingMethod (type), true, kaiserBeta);
    }
    else
    {
        fillGaussian (plain, derivative);
    }

    if (type != int (WindowType::gaussian))
        derivative = differentiateWindow (plain);

    const auto middle = int (size / 2);

    for (size_t n = 0; n < size; ++n)
    {
        const auto distance = float (int (n) - middle);
        ramp[n] = distance * plain[n];
        rampDerivative[n] = distance * derivative[n];
    }
}

} // namespace mk::orlo
