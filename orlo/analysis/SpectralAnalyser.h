// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "AnalysisSettings.h"
#include "AnalysisWindows.h"
#include "FrameBin.h"

#include <juce_dsp/juce_dsp.h>

#include <complex>
#include <memory>
#include <vector>

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
    [[nodiscard]] int getNumSamplesRead (int hop) const noexcept { return juce::jmin (hop, config.windowLength); }

    /** Moves the window on by a hop and transforms it. Bins that are too quiet, and all bins if the settings are
        not for Enhanced, keep the shifts that the frame had before. Allocates only when the frame grows.

        @param samples     the first getNumSamplesRead (settings.hop) samples of the hop
        @param settings    with a hop of at least 1; its window is applied by configure() only
        @param sampleRate  hertz
        @param frame       gets the bins and their format */
    void process (const float* samples, const AnalysisSettings& settings, double sampleRate, Frame& frame);

private:
    void slideWindow (const float* samples, int hop) noexcept;
    void transformWith (const std::vector<float>& window, std::vector<std::complex<float>>& spectrum) noexcept;
    void fillMagnitudes (float threshold, Frame& frame) noexcept;
    void fillShifts (float threshold, Frame& frame) const noexcept;

    AnalysisConfig config { 0, 0, 0 };
    int fftSize = 0, numBins = 0;
    std::vector<float> inputFrame, workBuffer, magnitudes;
    std::unique_ptr<juce::dsp::FFT> fft;
    AnalysisWindows windows;
    std::vector<std::complex<float>> spectrumPlain, spectrumDerivative, spectrumRamp;
};

} // namespace mk::orlo
