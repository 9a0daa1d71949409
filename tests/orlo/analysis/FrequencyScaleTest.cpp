// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/FrequencyScale.h"

#include "tests/support/GoldenVectors.h"
#include "tests/support/MessageLoop.h"
#include "tests/support/Sanitizers.h"

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

TEST (FrequencyScale, TheBandBelowFiftyHertzIsAtMostAnOctaveHigh)
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

/** The largest allowed difference between the two directions: half a row of a picture 1600 rows high. */
constexpr auto halfARow = 0.5f / 1600.0f;

void expectThatBothDirectionsAgree (float minHz, float maxHz)
{
    FrequencyScale scale;

    for (int type = 0; type < FrequencyScale::numTypes; ++type)
    {
        setUp (scale, minHz, maxHz, type);
        auto worst = 0.0f;

        for (int i = 1; i < 1600; ++i)
        {
            const auto position = float (i) / 1600.0f;
            const auto hz = scale.frequencyForPosition (position);

            // A log scale that ends below 50 Hz ends below the top, and the rest of the axis is beyond the range.
            if (type != FrequencyScale::log || hz < maxHz)
                worst = std::max (worst, std::abs (scale.positionForFrequency (hz) - position));
        }

        EXPECT_LE (worst, halfARow) << minHz << " to " << maxHz << " Hz, type " << type;
    }
}

TEST (FrequencyScale, BothDirectionsAgreeOnNarrowRangesWithFractionalLimits)
{
    for (const auto& [min, max] : { std::pair { 100.5f, 120.5f },
                                    { 100.9f, 110.1f },
                                    { 49.5f, 50.5f },
                                    { 50.5f, 60.0f },
                                    { 0.25f, 3.75f },
                                    { 20.3f, 49.9f },
                                    { 24.7f, 724.3f },
                                    { 0.5f, 1000.5f },
                                    { 440.01f, 440.99f },
                                    { 19980.3f, 19999.6f } })
        expectThatBothDirectionsAgree (min, max);
}

TEST (FrequencyScale, BothDirectionsAgreeOnAnyRange)
{
    juce::Random random (11);

    for (int i = 0; i < 300 / slowdown; ++i)
    {
        // From a thousandth of the top frequency to all of it; for a narrower range a float is too coarse.
        const auto max = 10.0f * std::pow (9600.0f, random.nextFloat());
        const auto width = max * std::pow (0.001f, random.nextFloat());
        expectThatBothDirectionsAgree (max - width, max);
    }
}

TEST (FrequencyScale, AnyPositionLiesBetweenBottomAndTopOnFractionalRanges)
{
    FrequencyScale scale;

    for (int type = 0; type < FrequencyScale::numTypes; ++type)
    {
        setUp (scale, 100.5f, 120.5f, type);
        auto last = 0.0f;

        for (float hz = 100.0f; hz < 121.0f; hz += 0.001f)
        {
            const auto position = scale.positionForFrequency (hz);
            ASSERT_GE (position, last) << hz;
            ASSERT_LE (position, 1.0f) << hz;
            last = position;
        }

        EXPECT_EQ (last, 1.0f);
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

TEST (FrequencyScale, ManyFrequenciesAreConvertedAsSingleOnesAre)
{
    std::vector<float> hz { std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::infinity(), 0.0f };

    for (auto f = 0.5f; f < 30000.0f; f *= 1.003f)
        hz.push_back (f);

    hz.push_back (std::numeric_limits<float>::infinity());

    for (int type = 0; type <= FrequencyScale::numTypes; ++type)
        for (const auto& [min, max] : { std::pair { 0.0f, 22050.0f },
                                        { 20.0f, 20000.0f },
                                        { 60.0f, 61.5f },
                                        { 10.0f, 45.0f },
                                        { 300.0f, 300.0f } })
        {
            FrequencyScale scale;
            scale.setScaleType (type);
            scale.setRange (min, max);

            for (const auto count : { size_t (0), size_t (1), size_t (63), size_t (64), size_t (65), hz.size() })
            {
                std::vector<float> positions (hz.size() + 1, 7.0f);
                scale.getForwardMap().convert (hz.data(), positions.data(), count);

                for (size_t i = 0; i < count; ++i)
                    ASSERT_NEAR (positions[i], scale.positionForFrequency (hz[i]), 1.0e-6f)
                        << hz[i] << " Hz of " << min << " to " << max << ", type " << type;

                EXPECT_EQ (positions[count], 7.0f);
            }
        }
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

TEST (FrequencyScale, ChangesWithinOneTurnOfTheMessageLoopNotifyOnce)
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
