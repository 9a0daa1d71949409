// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AlignedFloats.h"
#include "AnalysisSettings.h"
#include "FrameBin.h"
#include "RealTransform.h"
#include "SlidingWindow.h"

#include <memory>

namespace mk::orlo
{

/** The analysis itself, without a thread or a queue: turns samples into frames.

    Successive hops slide through a window, which is transformed after each. Instances share no state, so
    several threads may each use their own; one thread at a time for each instance.
*/
class SpectralAnalyser
{
public:
    /** Applies the default configuration. */
    SpectralAnalyser();

    /** Applies another configuration if its window length differs from the current one, else does nothing.
        Allocates. The samples are kept, so the next frames show a short transition. */
    void configure (AnalysisConfig config);

    [[nodiscard]] AnalysisConfig getConfig() const noexcept { return config; }

    /** The transform's length in samples. */
    [[nodiscard]] int getFftSize() const noexcept { return fftSize; }

    /** How many samples of each hop are read: if the hop is longer than the window, the rest is skipped. */
    [[nodiscard]] int getNumSamplesRead (int hop) const noexcept { return samples.getNumSamplesRead (hop); }

    /** Where the first getNumSamplesRead (hop) samples of the next hop, of at least 1, are to be written before
        process() is called. */
    [[nodiscard]] float* getHopBuffer (int hop) noexcept { return samples.getHopBuffer (hop); }

    /** Moves the window on by a hop, whose samples are in getHopBuffer(), and transforms it. Bins that are too quiet
        to be reassigned keep the shifts of the frame before. Allocates only when the frame grows.

        @param settings    with a hop of at least 1; its window is applied by configure() only
        @param sampleRate  hertz
        @param frame       gets the bins and their format */
    void process (const AnalysisSettings& settings, double sampleRate, Frame& frame);

    /** The same for samples that are elsewhere.

        @param hopSamples  the first getNumSamplesRead (settings.hop) samples of the hop */
    void process (const float* hopSamples, const AnalysisSettings& settings, double sampleRate, Frame& frame);

private:
    void transformForShifts() noexcept;
    void transformWith (const AlignedFloats& window, Spectrum& spectrum) noexcept;
    void fillMagnitudes (float threshold, Frame& frame) noexcept;
    void fillShifts (float threshold, Frame& frame) noexcept;

    AnalysisConfig config { 0, 0, 0 };
    int fftSize = 0;
    SlidingWindow samples;

    // The windows with all factors that the transforms need. In the last, values of the derivative window, which
    // is made louder by derivativeGain, and of the ramp window take turns, as the transform wants them.
    AlignedFloats plainWindow, rampDerivativeWindow, shiftWindows;
    float derivativeGain = 1.0f;

    std::unique_ptr<RealTransform> transform; // of one window after the other
    std::unique_ptr<RealPairTransform> shiftTransform;
    Spectrum plain, derivative, ramp, rampDerivative;
    AlignedFloats magnitudes;             // of the bins below Nyquist, before the threshold
    AlignedFloats timeShifts, freqShifts; // of the newest reassigned frame
};

} // namespace mk::orlo
