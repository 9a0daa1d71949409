// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/Decibels.h"

#include "orlo/analysis/ColumnSettings.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <vector>

namespace mk::orlo::test
{
namespace
{
constexpr auto infinity = std::numeric_limits<float>::infinity();
constexpr auto nan = std::numeric_limits<float>::quiet_NaN();

TEST (Decibels, AgreeWithLog10OverTheWholeRangeOfFloats)
{
    constexpr std::uint32_t bitsOfInfinity = 0x7f800000, stride = 1013;
    auto worst = 0.0;

    for (std::uint32_t bits = 1; bits < bitsOfInfinity; bits += stride)
    {
        const auto magnitude = std::bit_cast<float> (bits);
        const auto expected = std::max (double (silenceDb), 20.0 * std::log10 (double (magnitude)));
        worst = std::max (worst, std::abs (double (fastDecibels (magnitude)) - expected));
    }

    EXPECT_LT (worst, 1.0e-4);
}

TEST (Decibels, AgreeCloselyWithLog10WhereLevelsAreShown)
{
    auto worst = 0.0;

    for (auto dB = -139.99; dB < 20.0; dB += 0.001)
    {
        const auto magnitude = float (std::pow (10.0, dB / 20.0));
        const auto expected = 20.0 * std::log10 (double (magnitude));
        worst = std::max (worst, std::abs (double (fastDecibels (magnitude)) - expected));
    }

    EXPECT_LT (worst, 2.0e-5);
}

TEST (Decibels, AllThatIsNotAudibleIsSilence)
{
    for (const auto magnitude :
         { 0.0f, -0.0f, 1.0e-7f, 1.0e-38f, std::numeric_limits<float>::denorm_min(), -1.0f, -infinity, nan, -nan })
        EXPECT_EQ (fastDecibels (magnitude), silenceDb) << magnitude;

    EXPECT_GE (fastDecibels (std::nextafter (silenceMagnitude, 1.0f)), silenceDb);
}

TEST (Decibels, InfinityIsLouderThanAnyNumber)
{
    EXPECT_NEAR (fastDecibels (infinity), 770.6f, 0.1f);
    EXPECT_GE (fastDecibels (infinity), fastDecibels (std::numeric_limits<float>::max()));
}

TEST (Decibels, PowersOfTenAndTwoAreExactEnoughToBeRoundNumbers)
{
    EXPECT_EQ (fastDecibels (1.0f), 0.0f);
    EXPECT_NEAR (fastDecibels (0.1f), -20.0f, 1.0e-5f);
    EXPECT_NEAR (fastDecibels (2.0f), 6.0206f, 1.0e-5f);
}

TEST (Decibels, AnArrayOfAnyLengthIsConvertedAsSingleValuesAre)
{
    for (size_t count = 0; count < 20; ++count)
    {
        std::vector<float> magnitudes, decibels (count + 1, 7.0f);

        for (size_t i = 0; i < count; ++i)
            magnitudes.push_back (std::pow (0.3f, float (i)));

        fastDecibels (magnitudes.data(), decibels.data(), count);

        for (size_t i = 0; i < count; ++i)
            EXPECT_NEAR (decibels[i], fastDecibels (magnitudes[i]), 1.0e-5f);

        EXPECT_EQ (decibels[count], 7.0f);
    }
}

/** The levels of some magnitudes, and the same by std::log10. */
void expectLevels (float floorDb, float ceilingDb)
{
    std::vector<float> values { 0.0f, nan, infinity };

    for (auto dB = -150.0f; dB < 20.0f; dB += 0.37f)
        values.push_back (std::pow (10.0f, dB / 20.0f));

    ColumnSettings settings;
    settings.floorDb = floorDb;
    settings.ceilingDb = ceilingDb;
    const auto magnitudes = values;
    magnitudesToLevels (values.data(), values.size(), floorDb, ceilingDb);

    for (size_t i = 0; i < values.size(); ++i)
        EXPECT_NEAR (values[i], settings.levelForDecibels (decibelsForMagnitude (magnitudes[i])), 1.0e-5f)
            << magnitudes[i] << " between " << floorDb << " and " << ceilingDb;
}

TEST (Decibels, LevelsAgreeWithLog10)
{
    expectLevels (-100.0f, 0.0f);
    expectLevels (-140.0f, 12.0f);
    expectLevels (0.0f, -100.0f);
    expectLevels (-60.0f, -50.0f);
}

TEST (Decibels, AFloorAtTheCeilingGivesZeroOneOrNoNumber)
{
    std::vector<float> values { 0.0f, 0.1f, 1.0f, infinity, 100.0f };
    magnitudesToLevels (values.data(), values.size(), 0.0f, 0.0f);
    EXPECT_EQ (values[0], 0.0f);
    EXPECT_EQ (values[1], 0.0f);
    EXPECT_TRUE (std::isnan (values[2]));
    EXPECT_EQ (values[3], 1.0f);
    EXPECT_EQ (values[4], 1.0f);
}

} // namespace
} // namespace mk::orlo::test
