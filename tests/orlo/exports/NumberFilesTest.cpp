// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/exports/NumberFiles.h"

#include "orlo/exports/ExportDescription.h"
#include "orlo/stills/MakeStill.h"
#include "tests/orlo/stills/MemorySource.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;

/** Half a second of a tone, half a second of silence, from its first sample on. */
[[nodiscard]] StillRequest makeToneRequest (bool enhanced, double length)
{
    auto signal = makeSine (1000.0, 0.5f, 22050, rate);
    signal.resize (44100);
    return makeRequest (std::move (signal), 0.0, length, 60, 50, enhanced);
}

[[nodiscard]] bool goOn (double) { return true; }

[[nodiscard]] juce::StringArray writePointLines (const StillRequest& request, float lowest)
{
    juce::MemoryOutputStream stream;
    EXPECT_TRUE (writePoints (request, lowest, stream, goOn));
    return juce::StringArray::fromLines (stream.toString().trimEnd());
}

TEST (NumberFiles, LevelsAreThoseOfThePictureInDecibels)
{
    const auto picture = makeStill (makeToneRequest (true, 44100.0), 1, goOn);
    juce::MemoryOutputStream stream;
    writeLevels (*picture, stream);

    const auto array = readNpy (stream.getMemoryBlock());
    ASSERT_EQ (array.rows, 50);
    ASSERT_EQ (array.columns, 60);
    ASSERT_EQ (array.values.size(), 3000u);

    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 60; ++x)
            ASSERT_EQ (array.get (y, x), picture->getDecibels (x, y));
}

TEST (NumberFiles, TheDescriptionSaysWhatTheAxesMean)
{
    const auto request = makeToneRequest (true, 44100.0);
    const StillColours colours { -90.0f, 0.0f, std::make_shared<const ColourMap> (2u) };
    const auto value = juce::JSON::parse (describeLevels (request, colours, { {}, "Program", 0.0 }));
    EXPECT_EQ (value["quantity"], "level");
    EXPECT_EQ (value["unit"], "dB");

    const auto frequency = value["axes"][0];
    EXPECT_EQ (frequency["name"], "frequency");
    EXPECT_EQ (frequency["unit"], "Hz");
    ASSERT_EQ (frequency["values"].size(), 50);
    EXPECT_NEAR (double (frequency["values"][0]), 22050.0, 0.1);
    EXPECT_NEAR (double (frequency["values"][49]), 0.0, 0.1);

    const auto time = value["axes"][1];
    EXPECT_EQ (time["name"], "time");
    ASSERT_EQ (time["values"].size(), 60);
    EXPECT_NEAR (double (time["values"][0]), 0.5 / 60.0, 1.0e-9);
    EXPECT_EQ (value["settings"]["Colour map"], "viridis");
    EXPECT_EQ (value["settings"]["FFT size"], "2048");
}

TEST (NumberFiles, PointsHaveTimeFrequencyAndLevel)
{
    // Zoomed out and in to less than a sample in a pixel, in both modes.
    for (const auto enhanced : { false, true })
        for (const auto length : { 44100.0, 3000.0, 40.0 })
        {
            SCOPED_TRACE (testing::Message() << enhanced << " " << length);
            auto request = makeToneRequest (enhanced, length);
            request.start = length > 40000.0 ? 0.0 : 9000.0;
            const auto lines = writePointLines (request, -20.0f);
            ASSERT_EQ (lines[0], "time (s),frequency (Hz),level (dB)");
            ASSERT_GT (lines.size(), 30);
            auto numLoud = 0;

            for (int i = 1; i < lines.size(); ++i)
            {
                const auto fields = juce::StringArray::fromTokens (lines[i], ",", {});
                ASSERT_EQ (fields.size(), 3) << lines[i];
                const auto seconds = fields[0].getDoubleValue();
                ASSERT_GE (seconds, 0.0);
                ASSERT_LE (seconds, length / rate + 1.0e-6);
                ASSERT_GE (fields[2].getDoubleValue(), -20.0);

                // Away from the tone's ends.
                if (request.start / rate + seconds > 0.05 && request.start / rate + seconds < 0.45
                    && fields[2].getDoubleValue() > -8.0)
                {
                    ASSERT_NEAR (fields[1].getDoubleValue(), 1000.0, 0.05);
                    ASSERT_NEAR (fields[2].getDoubleValue(), -7.0, 1.1);
                    ++numLoud;
                }
            }

            EXPECT_GT (numLoud, 20);
        }
}

TEST (NumberFiles, PointsOutsideOfTheFrequenciesAreLeftOut)
{
    auto request = makeToneRequest (true, 44100.0);
    request.minFreqFraction = 0.5f;
    EXPECT_EQ (writePointLines (request, -20.0f).size(), 1);
}

TEST (NumberFiles, PointsStopWhenTheyAreTold)
{
    juce::MemoryOutputStream stream;
    auto last = 0.0;
    EXPECT_FALSE (writePoints (makeToneRequest (true, 44100.0),
                               -20.0f,
                               stream,
                               [&last] (double done)
                               {
                                   EXPECT_GT (done, last);
                                   last = done;
                                   return done < 0.5;
                               }));
    EXPECT_NEAR (last, 0.5, 0.05);
}

} // namespace
} // namespace mk::orlo::test
