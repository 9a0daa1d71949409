// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/Measurement.h"

#include "orlo/stills/MakeStill.h"
#include "orlo/stills/StillScales.h"
#include "tests/orlo/stills/MemorySource.h"

#include <gtest/gtest.h>

#include <array>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 44100.0;
constexpr int soundLength = 88200;

/** Two seconds of A and the E above it, one of which is half as loud, 400 by 400 pixels. */
class MeasurementTest : public testing::Test
{
protected:
    MeasurementTest()
    {
        auto signal = makeSine (440.0, 0.5f, soundLength, rate);
        const auto other = makeSine (660.0, 0.25f, soundLength, rate);

        for (size_t i = 0; i < signal.size(); ++i)
            signal[i] += other[i];

        request = makeRequest (std::move (signal), 0.0, soundLength, 400, 400, true);
        request.maxFreqFraction = 0.05f;
        picture = makeStill (request, 1, [] (double) { return true; });
        scale = makeStillScale (request);
    }

    /** The place of a frequency and a time, and so many pixels above it. */
    [[nodiscard]] Measurement::Place at (double hertz, double seconds, float pixelsAbove, bool snaps = true) const
    {
        const auto y = 1.0f - scale->positionForFrequency (float (hertz)) - pixelsAbove / 400.0f;
        return { { float (seconds / 2.0), y }, 1.0f, snaps };
    }

    StillRequest request;
    std::shared_ptr<const StillPicture> picture;
    std::shared_ptr<const FrequencyScale> scale;
    Measurement measurement;
};

TEST_F (MeasurementTest, SnapsToTheToneBesideTheMouse)
{
    EXPECT_EQ (measurement.getText ({}, soundLength), "");
    measurement.begin (*picture, *scale, at (440.0, 1.0, 5.0f));

    const auto fields =
        juce::StringArray::fromTokens (measurement.getText ({}, soundLength).replace ("  ", "|"), "|", {});
    ASSERT_EQ (fields.size(), 3) << measurement.getText ({}, soundLength);
    EXPECT_TRUE (fields[0].startsWith ("440.0") && fields[0].endsWith ("Hz (A3)")) << fields[0];
    EXPECT_NEAR (fields[1].getDoubleValue(), -7.0, 1.1);
    EXPECT_NEAR (fields[2].getDoubleValue(), -1.0, 0.05);
}

TEST_F (MeasurementTest, ShowsThePlaceItselfWithoutSnapping)
{
    measurement.begin (*picture, *scale, at (500.0, 1.0, 0.0f, false));
    EXPECT_TRUE (measurement.getText ({}, soundLength).startsWith ("500.0")) << measurement.getText ({}, soundLength);
    EXPECT_TRUE (measurement.getText ({}, soundLength).endsWith ("  -1.000s"));

    // So does a mouse that has nothing within reach.
    const auto silent = makeStill (makeRequest (Samples (size_t (soundLength)), 0.0, soundLength, 400, 400, true),
                                   1,
                                   [] (double) { return true; });
    measurement.begin (*silent, *scale, at (500.0, 1.0, 0.0f));
    EXPECT_TRUE (measurement.getText ({}, soundLength).startsWith ("500.0"));
}

TEST_F (MeasurementTest, TheReachIsThatOfTheScreen)
{
    auto place = at (440.0, 1.0, 14.0f);
    place.pixelsPerUnit = 2.0f;
    measurement.begin (*picture, *scale, place);
    EXPECT_TRUE (measurement.getText ({}, soundLength).startsWith ("440.0"));
}

TEST_F (MeasurementTest, SaysWhatTheSecondPointIsMore)
{
    measurement.begin (*picture, *scale, at (440.0, 1.0, 3.0f));
    measurement.extend (*picture, *scale, at (660.0, 1.5, 3.0f));
    ASSERT_TRUE (measurement.getSecond());

    const auto text = measurement.getText ({}, soundLength);
    EXPECT_NEAR (text.fromFirstOccurrenceOf ("  ", false, false).getDoubleValue(), 220.0, 0.5) << text;
    EXPECT_TRUE (text.contains ("+702cents (perfect fifth +2cents)")) << text;
    EXPECT_NEAR (text.getDoubleValue(), 0.5, 0.1) << text;
    EXPECT_NEAR (text.fromLastOccurrenceOf ("  ", false, false).getDoubleValue(), -6.0, 0.5) << text;
}

TEST_F (MeasurementTest, GoingBackToTheFirstPointMeasuresOnlyThat)
{
    measurement.begin (*picture, *scale, at (440.0, 1.0, 3.0f));
    const auto text = measurement.getText ({}, soundLength);
    measurement.extend (*picture, *scale, at (660.0, 1.5, 3.0f));
    measurement.extend (*picture, *scale, at (440.0, 1.0, 3.0f));
    EXPECT_EQ (measurement.getText ({}, soundLength), text);

    measurement.clear();
    EXPECT_EQ (measurement.getText ({}, soundLength), "");
}

} // namespace
} // namespace mk::orlo::test
