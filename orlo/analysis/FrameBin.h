// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <cstddef>
#include <vector>

namespace mk::orlo
{

/** The result of the analysis for one transform bin of one frame. */
struct FrameBin
{
    float magnitude = 0.0f; /**< Linear amplitude; a full-scale sine on the bin reads 1. */
    float timeShift = 0.0f; /**< Samples from the centre of the window, later is positive. */
    float freqShift = 0.0f; /**< Hertz from the centre of the bin, higher is positive. */
};

/** The settings that a frame was made with, which say what its bins mean. */
struct FrameFormat
{
    int windowLength = 2047;     /**< Samples. */
    int fftSize = 2048;          /**< Samples. */
    int hop = 163;               /**< Samples since the previous frame, at least 1. */
    bool enhanced = true;        /**< Whether the bins have shifts. */
    float sampleRate = 44100.0f; /**< Hertz. */

    /** Hertz from one bin to the next. */
    [[nodiscard]] float getBinWidth() const noexcept { return sampleRate / float (fftSize); }

    bool operator== (const FrameFormat&) const noexcept = default;
};

/** One frame: the bins 0 .. fftSize / 2 of one analysis window. */
struct Frame
{
    Frame() = default;
    explicit Frame (size_t numBins, FrameBin value = {}) : bins (numBins, value) {}

    [[nodiscard]] size_t size() const noexcept { return bins.size(); }
    [[nodiscard]] const FrameBin& operator[] (size_t bin) const noexcept { return bins[bin]; }
    [[nodiscard]] FrameBin& operator[] (size_t bin) noexcept { return bins[bin]; }
    [[nodiscard]] auto begin() const noexcept { return bins.begin(); }
    [[nodiscard]] auto end() const noexcept { return bins.end(); }

    FrameFormat format;
    std::vector<FrameBin> bins;
};

} // namespace mk::orlo
