// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnalysisConfig.h"
#include "AnalysisWindows.h"
#include "FrameBin.h"
#include "FrameFifo.h"
#include "SampleFifo.h"

#include <juce_dsp/juce_dsp.h>

#include <complex>
#include <functional>

namespace mk::orlo
{

/** The analysis worker: cuts the mono signal into overlapping windows and turns each into a frame.

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

    /** [audio thread] Asks for another configuration; the worker takes it at its next wake-up if its
        window length differs from the current one. Wait-free. */
    void setPendingConfig (AnalysisConfig config) noexcept { pendingConfig.store (config); }

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
        turns every complete hop that waits into a frame. Allocates only for a new configuration. */
    void processAvailable();

    void run() override;

    //==============================================================================
    std::atomic<bool> paused { false };             /**< Written and read by the audio thread. */
    std::atomic<bool> enhanced { false };           /**< Written by audio, read by worker and builder. */
    std::atomic<float> magnitudeThreshold { 0.0f }; /**< Linear. Bins not above it read 0. Message to worker. */
    std::atomic<int> hopSize { 0 };                 /**< Samples. Message to worker, audio and builder. */

private:
    void applyPendingConfig();
    [[nodiscard]] bool processFrame (int windowLength, int hop);
    void transformWith (const std::vector<float>& window, std::vector<std::complex<float>>& spectrum);
    void fillMagnitudes (float threshold);
    void fillShifts (float threshold);

    static constexpr int sampleFifoSize = 163840;
    static constexpr int frameFifoSize = 50;
    static constexpr size_t largestFrame = 4097;

    std::atomic<double> sampleRate { 44100.0 };
    std::atomic<bool> isPrepared { false }; // written and read by whoever prepares
    AtomicAnalysisConfig pendingConfig { AnalysisConfig {} };
    AtomicAnalysisConfig currentConfig { AnalysisConfig { 511, 0, 0 } };
    std::atomic<int> fftSize { 0 };

    SampleFifo sampleFifo { sampleFifoSize };
    FrameFifo frameFifo { frameFifoSize };

    // The worker's own.
    Frame scratchFrame = Frame (largestFrame);
    int numBins = 0;
    std::vector<float> hopSamples, inputFrame, workBuffer, magnitudes;
    std::unique_ptr<juce::dsp::FFT> fft;
    AnalysisWindows windows;
    std::vector<std::complex<float>> spectrumPlain, spectrumDerivative, spectrumRamp;

    JUCE_DECLARE_WEAK_REFERENCEABLE (FFTProcessor)

    // Made once, copied by any thread, looked into on the message thread only.
    const juce::WeakReference<FFTProcessor> weakSelf { this };

    JUCE_DECLARE_NON_COPYABLE (FFTProcessor)
};

} // namespace mk::orlo
