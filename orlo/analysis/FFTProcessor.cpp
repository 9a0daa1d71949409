// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FFTProcessor.h"

#include <juce_events/juce_events.h>

#include <algorithm>

namespace mk::orlo
{

FFTProcessor::FFTProcessor() : juce::Thread ("ana") {}

FFTProcessor::~FFTProcessor()
{
    stopThread (1000);
    masterReference.clear();
}

void FFTProcessor::prepareToPlay (double rate)
{
    // 44100 is a placeholder until the first call, so the first rate is reported even if it is the same.
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

void FFTProcessor::setSettings (const AnalysisSettings& settings) noexcept
{
    setPendingConfig (settings.window);
    setHop (settings.hop);
    setEnhanced (settings.enhanced);
    setMagnitudeThreshold (settings.magnitudeThreshold);
    setPointsKept (settings.pointsKept);
}

AnalysisSettings FFTProcessor::getSettings() const noexcept
{
    return { pendingConfig.load(), getHop(), isEnhanced(), getMagnitudeThreshold(), getPointsKept() };
}

void FFTProcessor::pushSamples (const float* data, int count) noexcept
{
    sampleFifo.push (data, count);
    wakeIfHopIsReady();
}

void FFTProcessor::pushSamples (const float* first, const float* second, int count) noexcept
{
    sampleFifo.push (first, count, second);
    wakeIfHopIsReady();
}

void FFTProcessor::startSignal (int numStreams) noexcept
{
    // The samples of the new signal are pushed after it has been announced, so a worker that has got some of them also
    // sees the announcement; and those before it are gone, so a hop never holds samples of both.
    sampleFifo.discardAll();
    newestSignal.store (sampleFifo.getWritePosition() * 2 + (numStreams - 1));
}

FFTProcessor::Signal FFTProcessor::getNewestSignal() const noexcept
{
    const auto packed = newestSignal.load();
    return { packed / 2, int (packed % 2) + 1 };
}

void FFTProcessor::wakeIfHopIsReady()
{
    const auto wanted = juce::jmin (getCurrentConfig().windowLength, getHop());

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
    const auto settings = getSettings();

    applyConfig (settings.window);

    if (settings.hop < 1)
        return;

    while (! threadShouldExit() && popHop (settings.hop))
    {
        analyseHop ({ settings.window, settings.hop, isEnhanced(), getMagnitudeThreshold(), getPointsKept() },
                    frameFifo.getNext());
        frameFifo.push();
    }
}

void FFTProcessor::analyseHop (const AnalysisSettings& settings, Frame& frame)
{
    const auto rate = getSampleRate();
    analyser.process (settings, rate, frame);
    frame.others.resize (size_t (signal.numStreams) - 1);

    for (auto& other : frame.others)
        secondAnalyser->process (settings, rate, other);

    if (numSamplesOfSignal >= settings.window.windowLength)
        return;

    // The window still holds samples of the signal before.
    std::fill (frame.magnitudes.begin(), frame.magnitudes.end(), 0.0f);

    for (auto& other : frame.others)
        std::fill (other.magnitudes.begin(), other.magnitudes.end(), 0.0f);
}

void FFTProcessor::applyConfig (AnalysisConfig config)
{
    analyser.configure (config);

    if (secondAnalyser != nullptr)
        secondAnalyser->configure (config);

    fftSize.store (analyser.getFftSize(), std::memory_order_relaxed);
    currentConfig.store (analyser.getConfig());
}

bool FFTProcessor::popHop (int numSamples)
{
    for (;;)
    {
        const auto newest = getNewestSignal();

        if (newest.numStreams > 1 && secondAnalyser == nullptr)
        {
            secondAnalyser = std::make_unique<SpectralAnalyser>();
            secondAnalyser->configure (analyser.getConfig());
        }

        const auto numRead = analyser.getNumSamplesRead (numSamples);
        auto* const second = newest.numStreams > 1 ? secondAnalyser->getHopBuffer (numSamples) : nullptr;

        if (! sampleFifo.pop (analyser.getHopBuffer (numSamples), numRead, numSamples - numRead, second))
            return false;

        // If a signal has begun meanwhile, the samples may be of either, so they are not used.
        if (newest != getNewestSignal() || sampleFifo.getPoppedPosition() < newest.start)
            continue;

        if (newest != signal)
        {
            signal = newest;
            numSamplesOfSignal = 0;
        }

        numSamplesOfSignal =
            std::min<std::int64_t> (numSamplesOfSignal + numSamples, std::numeric_limits<std::int32_t>::max());
        return true;
    }
}

} // namespace mk::orlo
