// SPDX-License-Identifier: AGPL-3.0-or-later
#include "FFTProcessor.h"

#include <juce_events/juce_events.h>

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
        analyser.process ({ settings.window, settings.hop, isEnhanced(), getMagnitudeThreshold(), getPointsKept() },
                          getSampleRate(),
                          frameFifo.getNext());
        frameFifo.push();
    }
}

void FFTProcessor::applyConfig (AnalysisConfig config)
{
    analyser.configure (config);
    fftSize.store (analyser.getFftSize(), std::memory_order_relaxed);
    currentConfig.store (analyser.getConfig());
}

bool FFTProcessor::popHop (int numSamples)
{
    const auto numRead = analyser.getNumSamplesRead (numSamples);
    return sampleFifo.pop (analyser.getHopBuffer (numSamples), numRead, numSamples - numRead);
}

} // namespace mk::orlo
