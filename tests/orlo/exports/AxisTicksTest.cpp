// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/exports/AxisTicks.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{
[[nodiscard]] juce::String getTexts (const std::vector<AxisTick>& ticks)
{
    juce::StringArray texts;

    for (const auto& tick : ticks)
        if (tick.text.isNotEmpty())
            texts.add (tick.text);

    return texts.joinIntoString (" ");
}

[[nodiscard]] juce::String getFrequencies (float minHz, float maxHz, int type, float labelHeight)
{
    FrequencyScale scale;
    scale.setScaleType (type);
    scale.setRange (minHz, maxHz);
    return getTexts (makeFrequencyTicks (scale, labelHeight));
}

TEST (AxisTicks, AreRoundNumbersOfTheRange)
{
    EXPECT_EQ (getTexts (makeEvenTicks (0.0, 4.0, 10)), "0.0 0.5 1.0 1.5 2.0 2.5 3.0 3.5 4.0");
    EXPECT_EQ (getTexts (makeEvenTicks (0.0, 4.0, 5)), "0 1 2 3 4");
    EXPECT_EQ (getTexts (makeEvenTicks (0.0, 61.3, 10)), "0 10 20 30 40 50 60");
    EXPECT_EQ (getTexts (makeEvenTicks (0.0, 0.005, 5)), "0.000 0.001 0.002 0.003 0.004 0.005");
    EXPECT_EQ (getTexts (makeEvenTicks (-100.0, 0.0, 6)), "-100 -80 -60 -40 -20 0");
}

TEST (AxisTicks, HaveTheirPlaceOnAnAxisOfEitherDirection)
{
    for (const auto& [start, end] : { std::pair { -90.0, 0.0 }, { 0.0, -90.0 } })
        for (const auto& tick : makeEvenTicks (start, end, 9))
            if (tick.text.isNotEmpty())
            {
                EXPECT_NEAR (start + double (tick.position) * (end - start), tick.text.getDoubleValue(), 1.0e-4);
            }
}

TEST (AxisTicks, HaveUnlabelledOnesBetweenThem)
{
    const auto ticks = makeEvenTicks (0.0, 2.0, 2);
    EXPECT_EQ (ticks.size(), 11u);
    EXPECT_EQ (getTexts (ticks), "0 1 2");
}

TEST (AxisTicks, AreNoneForAnEmptyAxis)
{
    EXPECT_TRUE (makeEvenTicks (3.0, 3.0, 5).empty());
    EXPECT_TRUE (makeEvenTicks (0.0, std::nan (""), 5).empty());
    EXPECT_EQ (getFrequencies (100.0f, 100.0f, FrequencyScale::log, 0.03f), "");
}

TEST (AxisTicks, OfFrequenciesFollowTheScale)
{
    EXPECT_EQ (getFrequencies (0.0f, 22050.0f, FrequencyScale::linear, 0.04f),
               "0 2k 4k 6k 8k 10k 12k 14k 16k 18k 20k 22k");
    EXPECT_EQ (getFrequencies (20.0f, 20000.0f, FrequencyScale::log, 0.03f), "20 50 100 200 500 1k 2k 5k 10k 20k");

    // The frequencies below 500 Hz lie close together there.
    EXPECT_EQ (getFrequencies (0.0f, 22050.0f, FrequencyScale::mel, 0.04f), "0 200 500 1k 2k 5k 10k 20k");
}

TEST (AxisTicks, OfNarrowRangesHaveAnEvenDistance)
{
    EXPECT_EQ (getFrequencies (400.0f, 500.0f, FrequencyScale::log, 0.1f), "400 420 440 460 480 500");
    EXPECT_EQ (getFrequencies (1400.0f, 1500.0f, FrequencyScale::log, 0.1f), "1.4k 1.42k 1.44k 1.46k 1.48k 1.5k");
}

TEST (AxisTicks, LeaveTheirLabelsRoom)
{
    for (const auto type : { 0, 1, 2, 3, 4 })
        for (const auto room : { 0.02f, 0.05f, 0.2f })
        {
            FrequencyScale scale;
            scale.setScaleType (type);
            scale.setRange (0.0f, 22050.0f);
            auto last = -1.0f;

            for (const auto& tick : makeFrequencyTicks (scale, room))
                if (tick.text.isNotEmpty())
                {
                    EXPECT_GE (tick.position - last, 0.99f * room) << type << " " << room << " " << tick.text;
                    last = tick.position;
                }
        }
}

} // namespace
} // namespace mk::orlo::test
