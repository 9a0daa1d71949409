// SPDX-License-Identifier: AGPL-3.0-or-later
#include "GoldenVectors.h"

#include "SourceTree.h"

#include <iostream>

namespace mk::orlo::test
{

juce::var loadJson (const juce::String& path)
{
    const auto file = getTestDataFolder().getChildFile (path);
    auto parsed = juce::JSON::parse (file);

    if (parsed.isVoid())
    {
        std::cerr << "Cannot read " << file.getFullPathName() << std::endl;
        std::abort();
    }

    return parsed;
}

std::vector<float> toFloats (const juce::var& array)
{
    std::vector<float> values;

    for (const auto& value : *array.getArray())
        values.push_back (float (double (value)));

    return values;
}

const std::vector<std::string>& getReferenceAnalysisNames()
{
    static const std::vector<std::string> names { "chirp_1024_44100_enhanced",     "clicks_512_44100_enhanced",
                                                  "noise_1024_48000_enhanced",     "noise_256_96000_classic",
                                                  "sine_2048_44100_enhanced",      "sine_256_44100_classic",
                                                  "two_tones_2048_48000_enhanced", "two_tones_8192_44100_enhanced" };

    return names;
}

ReferenceAnalysis loadReferenceAnalysis (const std::string& name)
{
    const auto json = loadJson ("golden/" + juce::String (name) + ".json");

    ReferenceAnalysis analysis { json["signal"],
                                 json["label"],
                                 json["hop"],
                                 json["numSamples"],
                                 json["numFrames"],
                                 json["numBins"],
                                 json["sampleRate"],
                                 bool (int (json["enhanced"])),
                                 {},
                                 {} };

    for (const auto& frame : *json["frames"].getArray())
        analysis.frames.push_back ({ frame["index"],
                                     toFloats (frame["bins"]),
                                     toFloats (frame["magnitude"]),
                                     toFloats (frame["timeShift"]),
                                     toFloats (frame["freqShift"]) });

    for (const auto& column : *json["columns"].getArray())
        analysis.columns.push_back ({ column["index"],
                                      column["height"],
                                      column["scaleType"],
                                      column["history"],
                                      float (column["minFraction"]),
                                      float (column["maxFraction"]),
                                      float (column["floorDb"]),
                                      float (column["ceilingDb"]),
                                      toFloats (column["levels"]) });

    return analysis;
}

} // namespace mk::orlo::test
