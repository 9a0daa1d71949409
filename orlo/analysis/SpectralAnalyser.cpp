// SPDX-License-Identifier: AGPL-3.0-or-later
#include "SpectralAnalyser.h"

#include "Reassignment.h"

#include <algorithm>
#include <cmath>

namespace mk::orlo
{
namespace
{
// Below this amplitude (-120 dB) the quotients of the reassignment are mostly rounding noise.
constexpr float smallestReassignedMagnitude = 1.0e-6f;

[[nodiscard]] int paddingFactor (int paddingMode) noexcept { return paddingMode == 1 ? 2 : paddingMode == 2 ? 4 : 1; }
} // namespace

SpectralAnalyser::SpectralAnalyser() { configure ({}); }

void SpectralAnalyser::configure (AnalysisConfig newConfig)
{
    if (newConfig.windowLength == config.windowLength)
        return;

    config = newConfig;
    fftSize = juce::nextPowerOfTwo (config.windowLength) * paddingFactor (config.paddingMode);
    numBins = fftSize / 2 + 1;
    fft = std::make_unique<juce::dsp::FFT> (juce::roundToInt (std::log2 (fftSize)));
    windows.rebuild (config.windowLength, config.windowType);

    inputFrame.resize (size_t (fftSize) * 2);
    workBuffer.resize (size_t (fftSize) * 2);
    magnitudes.resize (size_t (numBins));

    // The transforms do not write the Nyquist bin, so a value left there by a larger size must be cleared.
    spectrumPlain.assign (size_t (fftSize), {});
    spectrumDerivative.assign (size_t (fftSize), {});
    spectrumRamp.assign (size_t (fftSize), {});
}

void SpectralAnalyser::process (const float* samples, const AnalysisSettings& settings, double sampleRate, Frame& frame)
{
    slideWindow (samples, settings.hop);
    transformWith (windows.plain, spectrumPlain);

    if (settings.enhanced)
    {
        transformWith (windows.derivative, spectrumDerivative);
        transformWith (windows.ramp, spectrumRamp);
    }

    frame.format = { config.windowLength, fftSize, settings.hop, settings.enhanced, float (sampleRate) };
    frame.bins.resize (size_t (numBins));
    fillMagnitudes (settings.magnitudeThreshold, frame);

    if (settings.enhanced)
        fillShifts (settings.magnitudeThreshold, frame);
}

//==============================================================================
void SpectralAnalyser::slideWindow (const float* samples, int hop) noexcept
{
    // The window's last sample stays zero, so one sample less is kept than the window holds.
    const auto keep = juce::jmax (0, config.windowLength - hop - 1);
    const auto fresh = getNumSamplesRead (hop);

    if (keep > 0)
        std::copy_n (inputFrame.begin() + hop, keep, inputFrame.begin());

    std::copy_n (samples, fresh, inputFrame.begin() + keep);

    // A NaN in the window's last sample would stay there for ever, so everything from the end of the samples on
    // is cleared, which keeps that sample zero after a change of hop or length too.
    std::fill (inputFrame.begin() + keep + fresh, inputFrame.begin() + fftSize, 0.0f);
}

void SpectralAnalyser::transformWith (const std::vector<float>& window,
                                      std::vector<std::complex<float>>& spectrum) noexcept
{
    using Vector = juce::FloatVectorOperations;

    // The transform reads only the first fftSize floats and writes the others itself.
    const auto length = int (window.size());
    Vector::multiply (workBuffer.data(), inputFrame.data(), window.data(), length);
    Vector::clear (workBuffer.data() + length, fftSize - length);

    fft->performRealOnlyForwardTransform (workBuffer.data(), true);

    const auto scale = 1.0f / float (fftSize);
    workBuffer[0] *= scale;

    if (numBins >= 3)
        Vector::multiply (workBuffer.data() + 2, 2.0f * scale, 2 * numBins - 4);

    workBuffer[size_t (2 * numBins - 2)] *= scale;

    // Copies the bins below Nyquist. The Nyquist bin itself is left unchanged.
    Vector::copy (reinterpret_cast<float*> (spectrum.data()), workBuffer.data(), fftSize);
}

void SpectralAnalyser::fillMagnitudes (float threshold, Frame& frame) noexcept
{
    // In double precision the squares of any two floats can be added without overflow or underflow, so
    // hypot() is not needed; unlike hypot(), this loop is vectorised.
    const auto* const spectrum = reinterpret_cast<const float*> (spectrumPlain.data());

    for (size_t k = 0; k < size_t (numBins); ++k)
    {
        const auto re = double (spectrum[2 * k]);
        const auto im = double (spectrum[2 * k + 1]);
        magnitudes[k] = float (std::sqrt (re * re + im * im));
    }

    // The comparison is written so that a NaN counts as silence.
    for (size_t k = 0; k < size_t (numBins); ++k)
        frame[k].magnitude = magnitudes[k] > threshold ? magnitudes[k] : 0.0f;
}

void SpectralAnalyser::fillShifts (float threshold, Frame& frame) const noexcept
{
    const auto rate = frame.format.sampleRate;

    for (size_t k = 0; k < size_t (numBins); ++k)
    {
        const auto magnitude = magnitudes[k];

        if (magnitude > threshold && magnitude >= smallestReassignedMagnitude)
        {
            auto& bin = frame[k];
            const auto shifts = reassign (spectrumPlain[k], spectrumDerivative[k], spectrumRamp[k], magnitude, rate);
            bin.timeShift = shifts.time;
            bin.freqShift = shifts.frequency;
        }
    }
}

} // namespace mk::orlo
