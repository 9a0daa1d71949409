// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <cmath>
#include <vector>

namespace mk::orlo
{

/** One level for each row of the picture, row 0 on top: 0 is the floor, 1 the ceiling. */
using Column = std::vector<float>;

/** All that decides, besides the frame itself, how a frame becomes a column. */
struct ColumnSettings
{
    int windowLength = 2047; /**< Samples. */
    int fftSize = 2048;      /**< Samples. */
    int hop = 163;           /**< Samples, at least 1. */
    bool enhanced = true;
    float sampleRate = 44100.0f; /**< Hertz. */
    float minHz = 0.0f;          /**< The shown range, hertz. */
    float maxHz = 22050.0f;
    float floorDb = -100.0f;
    float ceilingDb = 0.0f;
    int numRows = 0;

    /** Hertz from one bin to the next. */
    [[nodiscard]] float getBinWidth() const noexcept { return sampleRate / float (fftSize); }

    /** Decibels to level, not above 1 nor below 0. A floor at the ceiling can make it a NaN. */
    [[nodiscard]] float levelForDecibels (float dB) const noexcept
    {
        return juce::jlimit (0.0f, 1.0f, (dB - floorDb) / (ceilingDb - floorDb));
    }
};

/** The lowest level that is told apart from silence. */
inline constexpr float silenceDb = -140.0f;

/** Linear amplitude to decibels, at least silenceDb. */
[[nodiscard]] inline float decibelsForMagnitude (float magnitude) noexcept
{
    return magnitude > 0.0f ? juce::jmax (silenceDb, 20.0f * std::log10 (magnitude)) : silenceDb;
}

/** Decibels to linear amplitude; silenceDb and less mean none at all. */
[[nodiscard]] inline float magnitudeForDecibels (float dB) noexcept
{
    return dB > silenceDb ? std::pow (10.0f, dB * 0.05f) : 0.0f;
}

} // namespace mk::orlo
