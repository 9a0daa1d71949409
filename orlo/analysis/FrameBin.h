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

/** One frame: the bins 0 .. fftSize / 2 of one analysis window, each of their values in an array of its own, so that
    loops over them are vectorised. */
struct Frame
{
    Frame() = default;

    explicit Frame (size_t numBins, FrameBin value = {})
        : magnitudes (numBins, value.magnitude),
          timeShifts (numBins, value.timeShift),
          freqShifts (numBins, value.freqShift)
    {
    }

    [[nodiscard]] size_t size() const noexcept { return magnitudes.size(); }

    /** Changes the number of bins. Allocates only if there have never been as many. */
    void resize (size_t numBins)
    {
        magnitudes.resize (numBins);
        timeShifts.resize (numBins);
        freqShifts.resize (numBins);
    }

    /** A copy; const, so that nobody assigns to it by mistake. */
    [[nodiscard]] const FrameBin operator[] (size_t bin) const noexcept
    {
        return { magnitudes[bin], timeShifts[bin], freqShifts[bin] };
    }

    void set (size_t bin, FrameBin value) noexcept
    {
        magnitudes[bin] = value.magnitude;
        timeShifts[bin] = value.timeShift;
        freqShifts[bin] = value.freqShift;
    }

    FrameFormat format;
    std::vector<float> magnitudes; /**< As in FrameBin. */
    std::vector<float> timeShifts; /**< As in FrameBin; without meaning if the format is not Enhanced. */
    std::vector<float> freqShifts; /**< As in FrameBin; without meaning if the format is not Enhanced. */

    /** The frames of the same time and format whose bins and points are shown if they are louder; usually none. */
    std::vector<Frame> others;
};

} // namespace mk::orlo
