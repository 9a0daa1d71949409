// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/analysis/ColumnSettings.h"

#include <juce_core/juce_core.h>

#include <string>
#include <vector>

namespace mk::orlo::test
{

/** A file of tests/data, parsed. Ends the program if it cannot be read: every test needs its data. */
[[nodiscard]] juce::var loadJson (const juce::String& path);

/** A JSON array of numbers. */
[[nodiscard]] std::vector<float> toFloats (const juce::var& array);

/** Some bins of one frame, as an independent model in double precision computed them. */
struct ReferenceFrame
{
    int index;
    std::vector<float> bins, magnitude, timeShift, freqShift;
};

/** One column of the output after all frames of the signal have been processed in order. */
struct ReferenceColumn
{
    int index, height, scaleType, history;
    float minFraction, maxFraction, floorDb, ceilingDb;
    Column levels;
};

/** What the analysis makes of one signal. */
struct ReferenceAnalysis
{
    juce::String signal;
    int label, hop, numSamples, numFrames, numBins;
    double sampleRate;
    bool enhanced;
    std::vector<ReferenceFrame> frames;
    std::vector<ReferenceColumn> columns;
};

/** The names of the files, for parameterised tests. */
[[nodiscard]] const std::vector<std::string>& getReferenceAnalysisNames();

[[nodiscard]] ReferenceAnalysis loadReferenceAnalysis (const std::string& name);

} // namespace mk::orlo::test
