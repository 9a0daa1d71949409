// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FFTProcessor.h"

#include "Reassignment.h"

#include <juce_events/juce_events.h>

#include <cmath>

namespace mk::orlo
{
namespace
{
// Below this amplitude (-120 dB) the quotients of the reassignment are mostly rounding noise.
constexpr float smallestReassignedMagnitude = 1.0e-6f;

[[nodiscard]] int paddingFactor (int paddingMode) noexcept { return paddingMode == 1 ? 2 : paddingMode == 2 ? 4 : 1; }
} // namespace

FFTProcessor::FFTProcessor() : juce::Thread ("ana") { applyPendingConfig(); }

FFTProcessor::~FFTProcessor()
{
    stopThread (1000);
    masterReference.clear();
}

void FFTProcessor::prepareToPlay (double rate)
{
    // The rate that stands before the first call is nobody's: to those who wait for one, even the same is news.
    const auto isFirst = ! isPrepared.exchange (true, std::memory_order_relaxed);

    if (! isFirst && juce::approximatelyEqual (rate, sampleRate.load (std::memory_order_relaxed)))
        return;

    sampleRate.store (rate, std::memory_order_relaxed);

    juce::MessageManager::callAsync (
        [self = weakSelf]
        {
            if (self != nullptr && self->onSampleRateChanged != nullptr)
                self->onSampleRateChanged (self->getSampleRate());
        });
}

void FFTProcessor::pushSamples (const float* data, int count) noexcept
{
    sampleFifo.push (data, count);

    const auto wanted = juce::jmin (getCurrentConfig().windowLength, hopSize.load (std::memory_order_relaxed));

    if (sampleFifo.getNumReady() >= wanted)
        notify();
}

void FFTProcessor::discardPending() noexcept
{
    sampleFifo.discardAll();
    frameFifo.discardAll();
}

//==============================================================================
void FFTProcessor::run()
{
    while (! threadShouldExit())
    {
        wait (-1.0);

        if (threadShouldExit())
            break;

        processAvailable();
    }
}

void FFTProcessor::processAvailable()
{
    const juce::ScopedNoDenormals noDenormals;

    applyPendingConfig();

    const auto windowLength = getCurrentConfig().windowLength;
    const auto hop = hopSize.load (std::memory_order_relaxed);

    if (hop < 1)
        return;

    while (! threadShouldExit() && processFrame (windowLength, hop))
    {
    }
}

void FFTProcessor::applyPendingConfig()
{
    const auto config = pendingConfig.load();

    if (config.windowLength == currentConfig.load().windowLength)
        return;

    const auto size = juce::nextPowerOfTwo (config.windowLength) * paddingFactor (config.paddingMode);
    const auto order = juce::roundToInt (std::log2 (size));

    fft = std::make_unique<juce::dsp::FFT> (order);
    numBins = size / 2 + 1;
    windows.rebuild (config.windowLength, config.windowType);

    inputFrame.resize (size_t (size) * 2);
    workBuffer.resize (size_t (size) * 2);
    magnitudes.resize (size_t (numBins));

    // The transforms do not write the Nyquist bin, which must not keep what a larger size has left there.
    spectrumPlain.assign (size_t (size), {});
    spectrumDerivative.assign (size_t (size), {});
    spectrumRamp.assign (size_t (size), {});

    fftSize.store (size, std::memory_order_relaxed);
    currentConfig.store (config);
}

//==============================================================================
bool FFTProcessor::processFrame (int windowLength, int hop)
{
    // One sample less than the window holds: its last sample stays zero. A hop longer than the window
    // leaves the rest of each hop unread.
    const auto keep = juce::jmax (0, windowLength - hop - 1);
    const auto fresh = juce::jmin (hop, windowLength);

    hopSamples.resize (size_t (fresh));

    if (! sampleFifo.pop (hopSamples.data(), fresh, hop - fresh))
        return false;

    if (keep > 0)
        std::copy_n (inputFrame.begin() + hop, keep, inputFrame.begin());

    std::copy (hopSamples.begin(), hopSamples.end(), inputFrame.begin() + keep);

    // Clearing from the end of the samples, and not just from the end of the window, keeps the window's
    // last sample zero after a change of hop or length too: a NaN left there would never go away.
    std::fill (inputFrame.begin() + keep + fresh, inputFrame.begin() + fftSize.load (std::memory_order_relaxed), 0.0f);

    const auto reassigned = enhanced.load (std::memory_order_relaxed);
    transformWith (windows.plain, spectrumPlain);

    if (reassigned)
    {
        transformWith (windows.derivative, spectrumDerivative);
        transformWith (windows.ramp, spectrumRamp);
    }

    scratchFrame.resize (size_t (numBins));
    const auto threshold = magnitudeThreshold.load (std::memory_order_relaxed);
    fillMagnitudes (threshold);

    if (reassigned)
        fillShifts (threshold);

    frameFifo.push (scratchFrame);
    return true;
}

void FFTProcessor::transformWith (const std::vector<float>& window, std::vector<std::complex<float>>& spectrum)
{
    using Vector = juce::FloatVectorOperations;

    // Only the first fftSize floats go into the transform; it writes the others itself.
    const auto size = fftSize.load (std::memory_order_relaxed);
    const auto length = int (window.size());
    Vector::multiply (workBuffer.data(), inputFrame.data(), window.data(), length);
    Vector::clear (workBuffer.data() + length, size - length);

    fft->performRealOnlyForwardTransform (workBuffer.data(), true);

    const auto scale = 1.0f / float (size);
    workBuffer[0] *= scale;

    if (numBins >= 3)
        Vector::multiply (workBuffer.data() + 2, 2.0f * scale, 2 * numBins - 4);

    workBuffer[size_t (2 * numBins - 2)] *= scale;

    // The bins below Nyquist. The Nyquist bin itself is not taken over and stays as it was.
    Vector::copy (reinterpret_cast<float*> (spectrum.data()), workBuffer.data(), size);
}

void FFTProcessor::fillMagnitudes (float threshold)
{
    // In double precision the squares of any two floats can be added without overflow or underflow,
    // which is what hypot() is for; unlike hypot(), this loop is vectorised.
    const auto* const spectrum = reinterpret_cast<const float*> (spectrumPlain.data());

    for (int k = 0; k < numBins; ++k)
    {
        const auto re = double (spectrum[2 * k]);
        const auto im = double (spectrum[2 * k + 1]);
        magnitudes[size_t (k)] = float (std::sqrt (re * re + im * im));
    }

    // The comparison is written so that a NaN counts as silence.
    for (size_t k = 0; k < size_t (numBins); ++k)
        scratchFrame[k].magnitude = magnitudes[k] > threshold ? magnitudes[k] : 0.0f;
}

void FFTProcessor::fillShifts (float threshold)
{
    const auto rate = float (getSampleRate());

    for (size_t k = 0; k < size_t (numBins); ++k)
    {
        const auto magnitude = magnitudes[k];

        if (magnitude > threshold && magnitude >= smallestReassignedMagnitude)
        {
            auto& bin = scratchFrame[k];
            const auto shifts = reassign (spectrumPlain[k], spectrumDerivative[k], spectrumRamp[k], magnitude, rate);
            bin.timeShift = shifts.time;
            bin.freqShift = shifts.frequency;
        }
    }
}

} // namespace mk::orlo
