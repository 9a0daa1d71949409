// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectralAnalyser.h"

#include "AnalysisWindows.h"
#include "PointSelection.h"
#include "Reassignment.h"

#include <juce_core/juce_core.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace mk::orlo
{
namespace
{
[[nodiscard]] int paddingFactor (int paddingMode) noexcept { return paddingMode == 1 ? 2 : paddingMode == 2 ? 4 : 1; }

[[nodiscard]] double energyOf (const std::vector<float>& values)
{
    return std::inner_product (values.begin(), values.end(), values.begin(), 0.0);
}

/** The power of two that makes one window about as loud as the other. */
[[nodiscard]] float findGain (const std::vector<float>& window, const std::vector<float>& louder)
{
    const auto energy = energyOf (window);
    return energy > 0.0 ? float (std::exp2 (std::round (0.5 * std::log2 (energyOf (louder) / energy)))) : 1.0f;
}

/** DC has no mirror image at negative frequencies, so its amplitude is half of what the other bins' factor gives. */
void halveDC (Spectrum& spectrum) noexcept
{
    spectrum.re[0] *= 0.5f;
    spectrum.im[0] *= 0.5f;
}
/** Reassigns the bins that are loud enough; the others keep the shifts that are there. */
void updateShifts (const AlignedFloats& magnitudes,
                   const Spectrum& plain,
                   const Spectrum& derivative,
                   const Spectrum& ramp,
                   float threshold,
                   float rate,
                   float* __restrict timeShifts,
                   float* __restrict freqShifts) noexcept
{
    const auto numBins = magnitudes.size();
    const auto* const magnitude = magnitudes.data();
    const auto* const plainRe = plain.re.data();
    const auto* const plainIm = plain.im.data();
    const auto* const derivativeRe = derivative.re.data();
    const auto* const derivativeIm = derivative.im.data();
    const auto* const rampRe = ramp.re.data();
    const auto* const rampIm = ramp.im.data();

    for (size_t k = 0; k < numBins; ++k)
    {
        const auto m = magnitude[k];
        const auto shifts = reassign (
            { plainRe[k], plainIm[k] }, { derivativeRe[k], derivativeIm[k] }, { rampRe[k], rampIm[k] }, m, rate);

        // Both values are stored in any case, and "and" evaluates both sides, so that the loop has no branch.
        const auto isReassigned = bool (int (m > threshold) & int (m >= smallestReassignedMagnitude));
        const auto oldTime = timeShifts[k];
        const auto oldFrequency = freqShifts[k];
        timeShifts[k] = isReassigned ? shifts.time : oldTime;
        freqShifts[k] = isReassigned ? shifts.frequency : oldFrequency;
    }
}
} // namespace

SpectralAnalyser::SpectralAnalyser() { configure ({}); }

void SpectralAnalyser::configure (AnalysisConfig newConfig)
{
    if (newConfig.windowLength == config.windowLength)
        return;

    config = newConfig;
    fftSize = juce::jmax (2, juce::nextPowerOfTwo (config.windowLength)) * paddingFactor (config.paddingMode);
    samples.setLength (config.windowLength);

    AnalysisWindows windows;
    windows.rebuild (config.windowLength, config.windowType);
    const auto length = windows.plain.size();
    const auto scale = 1.0f / float (fftSize);
    derivativeGain = findGain (windows.derivative, windows.ramp);
    plainWindow.resize (length);
    rampDerivativeWindow.resize (length);
    shiftWindows.resize (2 * length);

    for (size_t n = 0; n < length; ++n)
    {
        plainWindow[n] = windows.plain[n] * scale;
        rampDerivativeWindow[n] = windows.rampDerivative[n] * scale;
        shiftWindows[2 * n] = windows.derivative[n] * scale * derivativeGain;
        shiftWindows[2 * n + 1] = windows.ramp[n] * scale;
    }

    transform = std::make_unique<RealTransform> (fftSize);
    shiftTransform = std::make_unique<RealPairTransform> (fftSize);

    const auto numBins = size_t (fftSize) / 2;

    for (auto* spectrum : { &plain, &derivative, &ramp, &rampDerivative })
        spectrum->resize (numBins);

    for (auto* values : { &magnitudes, &timeShifts, &freqShifts })
        values->resize (numBins);
}

void SpectralAnalyser::process (const float* hopSamples,
                                const AnalysisSettings& settings,
                                double sampleRate,
                                Frame& frame)
{
    std::copy_n (hopSamples, getNumSamplesRead (settings.hop), getHopBuffer (settings.hop));
    process (settings, sampleRate, frame);
}

void SpectralAnalyser::process (const AnalysisSettings& settings, double sampleRate, Frame& frame)
{
    samples.advance (settings.hop);
    frame.format = { config.windowLength, fftSize, settings.hop, settings.enhanced, float (sampleRate) };
    frame.resize (size_t (fftSize) / 2 + 1);

    transformWith (plainWindow, plain);
    fillMagnitudes (settings.magnitudeThreshold, frame);

    if (settings.enhanced)
    {
        transformForShifts();
        fillShifts (settings.magnitudeThreshold, frame);

        if (settings.pointsKept != PointsKept::all)
        {
            transformWith (rampDerivativeWindow, rampDerivative);
            dropPoints (settings.pointsKept,
                        { plain, derivative, ramp, rampDerivative, derivativeGain },
                        magnitudes,
                        frame.magnitudes.data());
        }
    }
}

//==============================================================================
void SpectralAnalyser::transformWith (const AlignedFloats& windowToUse, Spectrum& spectrum) noexcept
{
    const auto* const values = samples.getSamples();
    const auto* const window = windowToUse.data();
    const auto numSamples = samples.getNumSamples();
    float* __restrict input = transform->getInput();

    for (size_t n = 0; n < numSamples; ++n)
        input[n] = values[n] * window[n];

    std::fill (input + numSamples, input + windowToUse.size(), 0.0f);
    transform->run (spectrum);
    halveDC (spectrum);
}

void SpectralAnalyser::transformForShifts() noexcept
{
    const auto* const values = samples.getSamples();
    const auto* const window = shiftWindows.data();
    const auto numSamples = samples.getNumSamples();
    float* __restrict input = shiftTransform->getInput();

    for (size_t n = 0; n < numSamples; ++n)
    {
        input[2 * n] = values[n] * window[2 * n];
        input[2 * n + 1] = values[n] * window[2 * n + 1];
    }

    std::fill (input + 2 * numSamples, input + shiftWindows.size(), 0.0f);
    shiftTransform->run (derivative, ramp);
    halveDC (derivative);
    halveDC (ramp);
}

void SpectralAnalyser::fillMagnitudes (float threshold, Frame& frame) noexcept
{
    const auto numBins = magnitudes.size();
    const auto* const re = plain.re.data();
    const auto* const im = plain.im.data();
    float* __restrict unlimited = magnitudes.data();
    float* __restrict limited = frame.magnitudes.data();

    for (size_t k = 0; k < numBins; ++k)
    {
        // The comparison is written so that a NaN counts as silence.
        const auto magnitude = std::sqrt (re[k] * re[k] + im[k] * im[k]);
        unlimited[k] = magnitude;
        limited[k] = magnitude > threshold ? magnitude : 0.0f;
    }

    // The Nyquist bin is not analysed.
    limited[numBins] = 0.0f;
}

void SpectralAnalyser::fillShifts (float threshold, Frame& frame) noexcept
{
    // The gain of the derivative window is divided out of the frequencies, of which the rate is a factor.
    const auto rate = frame.format.sampleRate / derivativeGain;
    updateShifts (magnitudes, plain, derivative, ramp, threshold, rate, timeShifts.data(), freqShifts.data());
    std::copy (timeShifts.begin(), timeShifts.end(), frame.timeShifts.begin());
    std::copy (freqShifts.begin(), freqShifts.end(), frame.freqShifts.begin());
}

} // namespace mk::orlo
