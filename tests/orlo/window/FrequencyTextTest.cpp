// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/FrequencyText.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo
{
namespace
{
TEST (FrequencyTextTest, ReadsAsWholeHertz)
{
    EXPECT_EQ (frequencyText::fromPercent (50.0, 44100.0), "11025 Hz");
    EXPECT_EQ (frequencyText::fromPercent (0.0, 44100.0), "0 Hz");
    EXPECT_EQ (frequencyText::fromPercent (100.0, 44100.0), "22050 Hz");
    EXPECT_EQ (frequencyText::fromPercent (100.0, 192000.0), "96000 Hz");
    EXPECT_EQ (frequencyText::fromPercent (2.0, 48000.0), "480 Hz");
}

TEST (FrequencyTextTest, HasItsUnitInTheUsersLanguage)
{
    struct Language
    {
        Language()
        {
            juce::LocalisedStrings::setCurrentMappings (new juce::LocalisedStrings ("\"Hz\" = \"hertz\"", false));
        }
        ~Language() { juce::LocalisedStrings::setCurrentMappings (nullptr); }
    };

    const Language language;
    EXPECT_EQ (frequencyText::fromPercent (50.0, 44100.0), "11025 hertz");
    EXPECT_DOUBLE_EQ (frequencyText::toPercent ("11025 hertz", 44100.0), 50.0);
}

TEST (FrequencyTextTest, IsParsedAsANumber)
{
    EXPECT_DOUBLE_EQ (frequencyText::toPercent ("11025", 44100.0), 50.0);
    EXPECT_DOUBLE_EQ (frequencyText::toPercent ("480", 48000.0), 2.0);
    EXPECT_DOUBLE_EQ (frequencyText::toPercent ("12.5", 50000.0), 0.05);
    EXPECT_DOUBLE_EQ (frequencyText::toPercent ("44100", 44100.0), 200.0);
}

TEST (FrequencyTextTest, IgnoresTextAroundTheNumber)
{
    for (const auto* const text : { "440", "440 Hz", "440Hz", " 440 hz ", "f = 440", "-440", "+440" })
        EXPECT_DOUBLE_EQ (frequencyText::toPercent (text, 44000.0), 2.0) << text;

    for (const auto* const text : { "", "Hz", "none", "k", "...", "-" })
        EXPECT_DOUBLE_EQ (frequencyText::toPercent (text, 44100.0), 0.0) << text;
}

TEST (FrequencyTextTest, UnderstandsKilohertz)
{
    for (const auto* const text : { "1.5k", "1.5 k", "1.5 kHz", "1.5KHZ", "1,5k", "1.5e k" })
        EXPECT_DOUBLE_EQ (frequencyText::toPercent (text, 50000.0), 6.0) << text;

    EXPECT_DOUBLE_EQ (frequencyText::toPercent ("20k", 40000.0), 100.0);
}

TEST (FrequencyTextTest, NeverReturnsAnInvalidNumber)
{
    for (const auto rate : { 0.0, -1.0 })
    {
        EXPECT_EQ (frequencyText::fromPercent (50.0, rate), "0 Hz");
        EXPECT_DOUBLE_EQ (frequencyText::toPercent ("440", rate), 0.0);
    }

    EXPECT_TRUE (std::isfinite (frequencyText::toPercent (juce::String::repeatedString ("9", 1000), 44100.0)));
    EXPECT_GT (frequencyText::toPercent (juce::String::repeatedString ("9", 1000), 44100.0), 100.0);
    EXPECT_GE (frequencyText::toPercent ("1.2.3.4", 44100.0), 0.0);
}
} // namespace
} // namespace mk::orlo
