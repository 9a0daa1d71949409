// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/FrequencyScale.h"

#include "tests/support/GoldenVectors.h"
#include "tests/support/MessageLoop.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{

void setUp (FrequencyScale& scale, float minHz, float maxHz, int type)
{
    scale.setRange (minHz, maxHz);
    scale.setScaleType (type);
}

struct CountingListener final : FrequencyScale::Listener
{
    void frequencyScaleChanged (FrequencyScale&) override { ++count; }
    int count = 0;
};

TEST (FrequencyScale, MatchesTheReferenceInBothDirections)
{
    const auto table = loadJson ("golden/frequency_scale.json");
    ASSERT_GT (table.size(), 10);

    for (const auto& entry : *table.getArray())
    {
        FrequencyScale scale;
        setUp (scale, float (entry["minHz"]), float (entry["maxHz"]), entry["scaleType"]);
        SCOPED_TRACE (juce::String (entry["minHz"].toString() + " " + entry["maxHz"].toString() + " "
                                    + entry["scaleType"].toString())
                          .toStdString());

        EXPECT_EQ (scale.getTableSize(), int (entry["tableSize"]));

        for (const auto& pair : *entry["positions"].getArray())
            EXPECT_NEAR (scale.positionForFrequency (float (pair[0])), float (pair[1]), 3.0e-5f) << float (pair[0]);

        for (const auto& pair : *entry["frequencies"].getArray())
        {
            const auto expected = float (pair[1]);
            EXPECT_NEAR (
                scale.frequencyForPosition (float (pair[0])), expected, 2.0e-5f * std::abs (expected) + 1.0e-3f)
                << float (pair[0]);
        }
    }
}

TEST (FrequencyScale, StartsLinearFromZeroToTwentyThousand)
{
    FrequencyScale scale;
    EXPECT_EQ (scale.getScaleType(), FrequencyScale::linear);
    EXPECT_EQ (scale.getMinFrequency(), 0.0f);
    EXPECT_EQ (scale.getMaxFrequency(), 20000.0f);
    EXPECT_EQ (scale.getTableSize(), 20001);
    EXPECT_NEAR (scale.positionForFrequency (10000.0f), 0.5f, 1.0e-6f);
}

TEST (FrequencyScale, AnEmptyRangePutsEverythingAtTheBottom)
{
    FrequencyScale scale;

    for (int type = 0; type < FrequencyScale::numTypes; ++type)
    {
        setUp (scale, 440.0f, 440.0f, type);
        EXPECT_EQ (scale.positionForFrequency (100.0f), 0.0f);
        EXPECT_EQ (scale.positionForFrequency (440.0f), 0.0f);
        EXPECT_EQ (scale.positionForFrequency (1000.0f), 0.0f);
        EXPECT_TRUE (std::isfinite (scale.frequencyForPosition (0.5f)));
    }

    scale.setScaleType (FrequencyScale::linear);
    EXPECT_EQ (scale.frequencyForPosition (0.7f), 440.0f);
}

TEST (FrequencyScale, ALogRangeThatEndsBelowFiftyHertzIsLinearAgainstFifty)
{
    FrequencyScale scale;
    setUp (scale, 0.0f, 40.0f, FrequencyScale::log);
    EXPECT_NEAR (scale.positionForFrequency (20.0f), 0.4f, 1.0e-5f);
    EXPECT_NEAR (scale.positionForFrequency (39.9f), 0.798f, 1.0e-4f);
    EXPECT_EQ (scale.positionForFrequency (40.0f), 1.0f);
    EXPECT_NEAR (scale.frequencyForPosition (0.5f), 25.0f, 1.0e-4f);
}

TEST (FrequencyScale, TheLowBandIsNeverHigherThanAnOctave)
{
    FrequencyScale scale;
    const auto octavesAbove = std::log2 (20000.0f / 50.0f);

    for (const auto& [min, lowOctaves] :
         { std::pair { 0.0f, 1.0f }, { 10.0f, 1.0f }, { 24.0f, 1.0f }, { 25.0f, 1.0f }, { 40.0f, std::log2 (1.25f) } })
    {
        setUp (scale, min, 20000.0f, FrequencyScale::log);
        EXPECT_NEAR (scale.frequencyForPosition (lowOctaves / (lowOctaves + octavesAbove)), 50.0f, 1.0e-2f) << min;
        EXPECT_NEAR (scale.positionForFrequency (50.0f), lowOctaves / (lowOctaves + octavesAbove), 3.0e-4f) << min;
    }
}

TEST (FrequencyScale, FromFiftyHertzUpTheLogScaleIsPureOctaves)
{
    FrequencyScale scale;
    setUp (scale, 100.0f, 1600.0f, FrequencyScale::log);
    EXPECT_NEAR (scale.positionForFrequency (200.0f), 0.25f, 1.0e-4f);
    EXPECT_NEAR (scale.positionForFrequency (400.0f), 0.5f, 1.0e-4f);
    EXPECT_NEAR (scale.frequencyForPosition (0.75f), 800.0f, 1.0e-2f);
}

TEST (FrequencyScale, OnlyTheLinearInverseGoesBeyondTheRange)
{
    FrequencyScale scale;
    setUp (scale, 0.0f, 1000.0f, FrequencyScale::linear);
    EXPECT_FLOAT_EQ (scale.frequencyForPosition (1.2f), 1200.0f);
    EXPECT_EQ (scale.positionForFrequency (1200.0f), 1.0f);

    for (int type = FrequencyScale::log; type < FrequencyScale::numTypes; ++type)
    {
        scale.setScaleType (type);
        EXPECT_EQ (scale.frequencyForPosition (1.2f), 1000.0f);
        EXPECT_EQ (scale.frequencyForPosition (-0.2f), 0.0f);
    }
}

TEST (FrequencyScale, KeepsAboutOneEntryForEveryHertzButAtLeastAThousand)
{
    FrequencyScale scale;
    scale.setRange (0.0f, 22050.0f);
    EXPECT_EQ (scale.getTableSize(), 22051);
    scale.setRange (100.0f, 600.0f);
    EXPECT_EQ (scale.getTableSize(), 1000);
    scale.setRange (0.0f, 1000.0f);
    EXPECT_EQ (scale.getTableSize(), 1001);
}

TEST (FrequencyScale, PositionsAreMonotonicAndInvertible)
{
    FrequencyScale scale;

    for (int type = 0; type < FrequencyScale::numTypes; ++type)
    {
        setUp (scale, 20.0f, 22050.0f, type);
        auto last = -1.0f;

        for (float hz = 0.0f; hz < 23000.0f; hz += 7.3f)
        {
            const auto position = scale.positionForFrequency (hz);
            EXPECT_GE (position, last);
            last = position;

            if (hz > 60.0f && hz < 22000.0f)
            {
                EXPECT_NEAR (scale.frequencyForPosition (position), hz, 1.0e-3f * hz + 1.0f) << type;
            }
        }
    }
}

TEST (FrequencyScale, AnUnknownTypeMapsEverythingToZero)
{
    FrequencyScale scale;
    setUp (scale, 0.0f, 1000.0f, 5);
    EXPECT_EQ (scale.positionForFrequency (500.0f), 0.0f);
    EXPECT_EQ (scale.frequencyForPosition (0.5f), 0.0f);
}

TEST (FrequencyScale, ANaNFrequencyLiesAtTheBottom)
{
    FrequencyScale scale;
    EXPECT_EQ (scale.positionForFrequency (std::numeric_limits<float>::quiet_NaN()), 0.0f);
    EXPECT_EQ (scale.positionForFrequency (std::numeric_limits<float>::infinity()), 1.0f);
}

TEST (FrequencyScale, TheSameRangeTwiceNotifiesOnce)
{
    FrequencyScale scale;
    CountingListener listener;
    scale.addListener (&listener);

    scale.setRange (100.0f, 600.0f);
    scale.setRange (100.0f, 600.0f);
    pumpPending();
    EXPECT_EQ (listener.count, 1);

    scale.setRange (100.0f, 600.0f);
    pumpPending();
    EXPECT_EQ (listener.count, 1);

    scale.removeListener (&listener);
}

TEST (FrequencyScale, ARangeWithinRoundingKeepsTheOldValues)
{
    FrequencyScale scale;
    CountingListener listener;
    scale.setRange (100.0f, 600.0f);
    pumpPending();
    scale.addListener (&listener);

    scale.setRange (100.0f, std::nextafter (600.0f, 601.0f));
    pumpPending();
    EXPECT_EQ (listener.count, 0);
    EXPECT_EQ (scale.getMaxFrequency(), 600.0f);
    scale.removeListener (&listener);
}

TEST (FrequencyScale, ChangesBetweenTwoTurnsOfTheMessageLoopComeAsOne)
{
    FrequencyScale scale;
    CountingListener listener;
    scale.addListener (&listener);

    scale.setScaleType (FrequencyScale::mel);
    scale.setRange (0.0f, 500.0f);
    scale.setScaleType (FrequencyScale::bark);
    scale.setScaleType (FrequencyScale::bark);
    pumpPending();
    EXPECT_EQ (listener.count, 1);
    scale.removeListener (&listener);
}

} // namespace
} // namespace mk::orlo::test
