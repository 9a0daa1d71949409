// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnalysisConfig.h"
#include "AnalysisSettings.h"
#include "FrameBin.h"
#include "FrameFifo.h"
#include "SampleFifo.h"
#include "SpectralAnalyser.h"

#include <juce_audio_basics/juce_audio_basics.h>

#include <functional>
#include <limits>
#include <memory>

namespace mk::orlo
{

/** The analysis worker: the queues to and from a SpectralAnalyser, and the thread that runs it.

    The audio thread pushes samples, the image builder pops frames; both sides are lock-free. The
    thread "ana" only sleeps and calls processAvailable(), which tools, tests and benchmarks may call
    directly if the thread is not started.
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
    /** [audio thread] Appends mono samples and wakes the worker when a hop is complete. No allocation and
        no lock except that of the wake-up event. When the ring is full, the oldest samples are dropped. */
    void pushSamples (const float* data, int count) noexcept;

    /** [message thread] Makes it possible to push two streams. Allocates at the first call. The audio thread must get to
        know of it afterwards, by an operation that acquires what this thread releases. */
    void makeRoomForSecondStream() { sampleFifo.makeRoomForSecond(); }

    /** [audio thread] Appends samples of two streams, whose frames belong together. */
    void pushSamples (const float* first, const float* second, int count) noexcept;

    /** [audio thread] Says that the samples from the next ones on are of another signal, and of how many streams, 1 or
        2. Those that wait are dropped, and frames are silent until their window holds the new signal only, so that no
        frame shows both. Wait-free but for the worker's reading. */
    void startSignal (int numStreams) noexcept;

    /** Any thread. Sets all settings in one call, for tools that own them all; in the plug-in each of the setters
        below is called by one thread instead. Wait-free. */
    void setSettings (const AnalysisSettings& settings) noexcept;

    /** Any thread. The settings that the worker uses at its next wake-up. Each value is the newest, but the values
        are read one by one, so they may come from different calls of the setters. Wait-free. */
    [[nodiscard]] AnalysisSettings getSettings() const noexcept;

    /** [audio thread] Requests another configuration; the worker applies it at its next wake-up if its
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

    /** [message thread] Which points of reassigned frames are kept. Wait-free. */
    void setPointsKept (PointsKept kept) noexcept { pointsKept.store (kept, std::memory_order_relaxed); }
    [[nodiscard]] PointsKept getPointsKept() const noexcept { return pointsKept.load (std::memory_order_relaxed); }

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

    /** Any thread. The number of samples that wait to be analysed. */
    [[nodiscard]] int getNumSamplesReady() const noexcept { return sampleFifo.getNumReady(); }

    /** [message thread] Empties both rings. */
    void discardPending() noexcept;

    //==============================================================================
    /** [worker, or any thread while the worker's is not started] Applies a pending configuration, then
        turns every complete hop that waits into a frame. Allocates only for a new configuration, or while the frames
        in the ring grow. */
    void processAvailable();

    void run() override;

private:
    /** Samples of one source: which of all samples pushed is the first, and the number of streams. */
    struct Signal
    {
        SampleFifo::Position start = 0;
        int numStreams = 1;

        bool operator== (const Signal&) const noexcept = default;
    };

    void applyConfig (AnalysisConfig config);
    void wakeIfHopIsReady();
    [[nodiscard]] Signal getNewestSignal() const noexcept;
    [[nodiscard]] bool popHop (int numSamples);
    void analyseHop (const AnalysisSettings& settings, Frame& frame);

    static constexpr int sampleFifoSize = 163840;
    static constexpr int frameFifoSize = 50;

    std::atomic<double> sampleRate { 44100.0 };
    std::atomic<bool> isPrepared { false }; // written and read by the caller of prepareToPlay()

    // Each written by one thread, see the setters, and read by the worker and others.
    AtomicAnalysisConfig pendingConfig { AnalysisConfig {} };
    std::atomic<int> hop { 0 };
    std::atomic<bool> enhanced { false };
    std::atomic<float> magnitudeThreshold { 0.0f };
    std::atomic<PointsKept> pointsKept { PointsKept::all };

    SampleFifo sampleFifo { sampleFifoSize };
    FrameFifo frameFifo { frameFifoSize };

    // A Signal's values, written by the audio thread, read by the worker.
    std::atomic<std::int64_t> newestSignal { 0 };

    // Used by the worker only.
    SpectralAnalyser analyser;
    std::unique_ptr<SpectralAnalyser> secondAnalyser; // of the second stream, made when there is one
    Signal signal;
    std::int64_t numSamplesOfSignal = std::numeric_limits<std::int32_t>::max(); // counts until any window is full

    // Copies of the analyser's values, written by the worker, read by any thread.
    AtomicAnalysisConfig currentConfig { analyser.getConfig() };
    std::atomic<int> fftSize { analyser.getFftSize() };

    JUCE_DECLARE_WEAK_REFERENCEABLE (FFTProcessor)

    // Created once, copied by any thread, dereferenced on the message thread only.
    const juce::WeakReference<FFTProcessor> weakSelf { this };

    JUCE_DECLARE_NON_COPYABLE (FFTProcessor)
};

} // namespace mk::orlo
