// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/PointText.h"

#include "orlo/analysis/Decibels.h"
#include "orlo/display/Readout.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (PointText, NamesFrequencyLevelAndTime)
{
    EXPECT_EQ (formatPoint ({ 445.02, -3.2171, -23.41f }, {}, 3), "445.02Hz (A3 +20cents)  -23.4dB  -3.217s");
    EXPECT_EQ (formatPoint ({ 440.02, -3.2171, -23.41f }, {}, 3), "440.02Hz (A3)  -23.4dB  -3.217s");
    EXPECT_EQ (formatPoint ({ 12000.0, 0.0, 0.04f }, {}, 3), "12000.00Hz  0.0dB  0.000s");
}

TEST (PointText, HasTheFrequencyOfTheReadout)
{
    const notes::Tuning tuning { 4, 442.0 };

    for (const auto hz : { 10.0, 261.6, 442.0, 9000.0, 20000.0 })
        EXPECT_TRUE (formatPoint ({ hz, -1.0, -10.0f }, tuning, 3).startsWith (formatReadout (hz, tuning).trimEnd()));
}

TEST (PointText, SaysThatThereIsNothing)
{
    EXPECT_EQ (formatPoint ({ 10.0, -1.0, silenceDb }, {}, 3),
               juce::String::fromUTF8 ("10.00Hz  -\xe2\x88\x9e"
                                       "dB  -1.000s"));
}

TEST (PointText, HasAsManyDecimalsOfTimeAsTheZoomShows)
{
    EXPECT_EQ (getTimeDecimals (0.04), 3);
    EXPECT_EQ (getTimeDecimals (0.001), 3);
    EXPECT_EQ (getTimeDecimals (0.0009), 4);
    EXPECT_EQ (getTimeDecimals (0.000003), 6);
    EXPECT_EQ (getTimeDecimals (0.0), 6);
    EXPECT_EQ (formatPoint ({ 10.0, -1.23456789, -5.0f }, {}, 6), "10.00Hz  -5.0dB  -1.234568s");
    EXPECT_EQ (formatPoint ({ 10.0, -0.0000001, -5.0f }, {}, 3), "10.00Hz  -5.0dB  0.000s");
}

TEST (PointText, SaysTheDifferenceOfTwoPoints)
{
    EXPECT_EQ (formatDifference ({ 440.0, -3.0, -20.0f }, { 660.0, -2.488, -23.2f }, 3),
               "+0.512s  +220.00Hz  +702cents (perfect fifth +2cents)  -3.2dB");
    EXPECT_EQ (formatDifference ({ 660.0, -2.488, -23.2f }, { 440.0, -3.0, -20.0f }, 3),
               "-0.512s  -220.00Hz  -702cents (perfect fifth -2cents)  +3.2dB");
    EXPECT_EQ (formatDifference ({ 440.0, -3.0, -20.0f }, { 440.0, -3.0, -20.0f }, 3),
               "+0.000s  +0.00Hz  +0cents (unison)  +0.0dB");
    EXPECT_EQ (formatDifference ({ 440.0, -3.0, -20.0f }, { 880.0, -3.00001, -20.01f }, 3),
               "+0.000s  +440.00Hz  +1200cents (octave)  +0.0dB");
}

TEST (PointText, LeavesOutWhatHasNoMeaning)
{
    EXPECT_EQ (formatDifference ({ 0.0, -3.0, -20.0f }, { 440.0, -3.0, silenceDb }, 3), "+0.000s  +440.00Hz");
}

TEST (PointText, NamesIntervalsBeyondAnOctave)
{
    EXPECT_EQ (getIntervalName (0), "unison");
    EXPECT_EQ (getIntervalName (-1), "minor second");
    EXPECT_EQ (getIntervalName (12), "octave");
    EXPECT_EQ (getIntervalName (-19), "octave + perfect fifth");
    EXPECT_EQ (getIntervalName (24), "2 octaves");
    EXPECT_EQ (getIntervalName (28), "2 octaves + major third");
}

} // namespace
} // namespace mk::orlo::test
