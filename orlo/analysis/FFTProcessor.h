// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnalysisConfig.h"
#include "AnalysisSettings.h"
#include "FrameBin.h"
#include "FrameFifo.h"
#include "SampleFifo.h"
#include "SpectralAnalyser.h"

#include <juce_core/juce_core.h>

#include <functional>

namespace mk::orlo
{

/** The analysis worker: the queues to and from a SpectralAnalyser, and the thread that runs it.

    The audio thread pushes samples, the image builder pops frames; both sides are lock-free. The
    thread "ana" only sleeps and calls processAvailable(), which tools, tests and benchmarks may call
    themselves as long as the thread is not started.
*/
class FFTProcessor final : public juce::Thread
{
public:
    /** Applies the default configuration; the thread is not started. */
    FFTProcessor();

    /** Stops the thread, within a second. */
    ~FFTProcessor() override;

    //==============================================================================
    /** [message or host thread] Stores the rate in hertz; at the first call and on each change,
        onSampleRateChanged is called later on the message thread. */
    void prepareToPlay (double rate);

    /** [message thread] Gets the new rate in hertz. */
    std::function<void (double)> onSampleRateChanged;

    //==============================================================================
    /** [audio thread] Appends mono samples and wakes the worker when a hop is complete. No allocation
        and no lock but that of the wake-up event. When the ring is full the oldest samples go. */
    void pushSamples (const float* data, int count) noexcept;

    /** Any thread. Takes all settings at once, for whoever owns them all; each of the setters below has a thread
        of its own in the plug-in. Wait-free. */
    void setSettings (const AnalysisSettings& settings) noexcept;

    /** Any thread. The settings that the worker takes at its next wake-up. Each value by itself is the newest; those
        set one after the other may be seen apart. Wait-free. */
    [[nodiscard]] AnalysisSettings getSettings() const noexcept;

    /** [audio thread] Asks for another configuration; the worker takes it at its next wake-up if its
        window length differs from the current one. Wait-free. */
    void setPendingConfig (AnalysisConfig config) noexcept { pendingConfig.store (config); }

    /** [view] Samples from one frame to the next; below 1 there is no analysis. Wait-free. */
    void setHop (int samples) noexcept { hop.store (samples, std::memory_order_relaxed); }
    [[nodiscard]] int getHop() const noexcept { return hop.load (std::memory_order_relaxed); }

    /** [audio thread] Whether frames are reassigned. Wait-free. */
    void setEnhanced (bool shouldReassign) noexcept { enhanced.store (shouldReassign, std::memory_order_relaxed); }
    [[nodiscard]] bool isEnhanced() const noexcept { return enhanced.load (std::memory_order_relaxed); }

    /** [message thread] Linear. Bins not above it read 0. Wait-free. */
    void setMagnitudeThreshold (float newThreshold) noexcept
    {
        magnitudeThreshold.store (newThreshold, std::memory_order_relaxed);
    }

    [[nodiscard]] float getMagnitudeThreshold() const noexcept
    {
        return magnitudeThreshold.load (std::memory_order_relaxed);
    }

    /** Any thread. Wait-free. */
    [[nodiscard]] AnalysisConfig getCurrentConfig() const noexcept { return currentConfig.load(); }

    /** Any thread. The transform's length in samples. */
    [[nodiscard]] int getFftSize() const noexcept { return fftSize.load (std::memory_order_relaxed); }

    /** Any thread. Hertz. */
    [[nodiscard]] double getSampleRate() const noexcept { return sampleRate.load (std::memory_order_relaxed); }

    //==============================================================================
    /** [builder] Takes the oldest frame; false if there is none. See FrameFifo::pop. */
    bool popFrame (Frame& into) noexcept { return frameFifo.pop (into); }

    /** Any thread. */
    [[nodiscard]] int getNumFramesReady() const noexcept { return frameFifo.getNumReady(); }

    /** Any thread. Samples that wait to be analysed. */
    [[nodiscard]] int getNumSamplesReady() const noexcept { return sampleFifo.getNumReady(); }

    /** [message thread] Empties both rings. */
    void discardPending() noexcept;

    //==============================================================================
    /** [worker, or anybody while the thread is not started] Takes over a pending configuration, then
        turns every complete hop that waits into a frame. Allocates only for a new configuration or a longer hop. */
    void processAvailable();

    void run() override;

private:
    void applyConfig (AnalysisConfig config);
    [[nodiscard]] bool popHop (int numSamples);

    static constexpr int sampleFifoSize = 163840;
    static constexpr int frameFifoSize = 50;
    static constexpr size_t largestFrame = 4097;

    std::atomic<double> sampleRate { 44100.0 };
    std::atomic<bool> isPrepared { false }; // written and read by whoever prepares

    // Each written by one thread, see the setters, and read by the worker and others.
    AtomicAnalysisConfig pendingConfig { AnalysisConfig {} };
    std::atomic<int> hop { 0 };
    std::atomic<bool> enhanced { false };
    std::atomic<float> magnitudeThreshold { 0.0f };

    SampleFifo sampleFifo { sampleFifoSize };
    FrameFifo frameFifo { frameFifoSize };

    // The worker's own.
    SpectralAnalyser analyser;
    std::vector<float> hopSamples;
    Frame scratchFrame;

    // Copies of what the analyser has, written by the worker, read by all.
    AtomicAnalysisConfig currentConfig { analyser.getConfig() };
    std::atomic<int> fftSize { analyser.getFftSize() };

    JUCE_DECLARE_WEAK_REFERENCEABLE (FFTProcessor)

    // Made once, copied by any thread, looked into on the message thread only.
    const juce::WeakReference<FFTProcessor> weakSelf { this };

    JUCE_DECLARE_NON_COPYABLE (FFTProcessor)
};

} // namespace mk::orlo
