// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Decibels.h"
#include "FrameBin.h"

#include <juce_core/juce_core.h>

#include <cmath>
#include <vector>

namespace mk::orlo
{

/** One level for each row of the picture, row 0 on top: 0 is the floor, 1 the ceiling. */
using Column = std::vector<float>;

/** The range of frequencies and levels that is shown, independent of the frames' format. */
struct ShownRange
{
    float minFreqFraction = 0.0f; /**< Share 0 .. 1 of half the sample rate. */
    float maxFreqFraction = 1.0f;
    float floorDb = -100.0f; /**< The levels of 0 and of 1, in decibels; they may cross. */
    float ceilingDb = 0.0f;
    int numRows = 0;
};

/** Everything that decides how a frame becomes a column, except for the frame's bins. */
struct ColumnSettings : FrameFormat
{
    float minHz = 0.0f; /**< The shown range, hertz. */
    float maxHz = 22050.0f;
    float floorDb = -100.0f;
    float ceilingDb = 0.0f;
    int numRows = 0;

    /** Decibels to level, clamped to 0 .. 1. Can be NaN if the floor equals the ceiling. */
    [[nodiscard]] float levelForDecibels (float dB) const noexcept
    {
        return juce::jlimit (0.0f, 1.0f, (dB - floorDb) / (ceilingDb - floorDb));
    }
};

/** The settings for frames of that format. Any thread. */
[[nodiscard]] inline ColumnSettings makeColumnSettings (const FrameFormat& format, const ShownRange& range) noexcept
{
    const auto nyquist = format.sampleRate * 0.5f;

    ColumnSettings settings { format };
    settings.minHz = juce::jlimit (0.0f, nyquist, range.minFreqFraction * nyquist);
    settings.maxHz = juce::jlimit (settings.minHz, nyquist, range.maxFreqFraction * nyquist);
    settings.floorDb = range.floorDb;
    settings.ceilingDb = range.ceilingDb;
    settings.numRows = range.numRows;
    return settings;
}

/** Linear amplitude to decibels, silenceDb or more. */
[[nodiscard]] inline float decibelsForMagnitude (float magnitude) noexcept
{
    return magnitude > 0.0f ? juce::jmax (silenceDb, 20.0f * std::log10 (magnitude)) : silenceDb;
}

/** Decibels to linear amplitude; silenceDb and less give 0. */
[[nodiscard]] inline float magnitudeForDecibels (float dB) noexcept
{
    return dB > silenceDb ? std::pow (10.0f, dB * 0.05f) : 0.0f;
}

} // namespace mk::orlo
