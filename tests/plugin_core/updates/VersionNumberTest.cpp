// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/updates/VersionNumber.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::pluginCore::test
{
namespace
{
constexpr auto most = std::numeric_limits<int>::max();

[[nodiscard]] juce::int64 rankOf (const char* text) { return VersionNumber::parse (text).getRank(); }
} // namespace

TEST (VersionNumber, HasThreePartsAndCountsAsFinalWithoutABeta)
{
    EXPECT_EQ (VersionNumber::parse ("1.2.3"), (VersionNumber { 1, 2, 3, 99 }));
    EXPECT_EQ (VersionNumber::parse ("1.2"), (VersionNumber { 1, 2, 0, 99 }));
    EXPECT_EQ (VersionNumber::parse ("1.2.3.4"), (VersionNumber { 1, 2, 3, 99 }));
    EXPECT_EQ (VersionNumber::parse ("1..3"), (VersionNumber { 1, 0, 3, 99 }));
    EXPECT_EQ (VersionNumber::parse (""), (VersionNumber { 0, 0, 0, 99 }));
}

TEST (VersionNumber, OfABetaEndsWhereTheWordBegins)
{
    EXPECT_EQ (VersionNumber::parse ("1.2.1beta3"), (VersionNumber { 1, 2, 1, 3 }));
    EXPECT_EQ (VersionNumber::parse ("1.2.1 BETA 12"), (VersionNumber { 1, 2, 1, 12 }));
    EXPECT_EQ (VersionNumber::parse ("1.2.1beta"), (VersionNumber { 1, 2, 1, 0 }));
    EXPECT_TRUE (VersionNumber::isBeta ("1.2.1Beta3"));
    EXPECT_FALSE (VersionNumber::isBeta ("1.2.1"));
}

TEST (VersionNumber, OfMalformedTextIsZeroOrTheNearestNumber)
{
    EXPECT_EQ (VersionNumber::parse ("one.two.three"), (VersionNumber { 0, 0, 0, 99 }));
    EXPECT_EQ (VersionNumber::parse ("99999999999.1e5.-2"), (VersionNumber { most, 1, -2, 99 }));
    EXPECT_GT (rankOf ("99999999999.99999999999.99999999999"), juce::int64 (most) * 11000);
}

TEST (VersionNumber, RanksAReleaseAboveItsBetas)
{
    EXPECT_LT (rankOf ("1.2.1beta3"), rankOf ("1.2.1"));
    EXPECT_EQ (rankOf ("1.2.1") - rankOf ("1.2.1beta3"), 96);
    EXPECT_EQ (rankOf ("1.2.0"), 12099);
    EXPECT_EQ (rankOf ("1.2.1"), 12199);
}

TEST (VersionNumber, RanksByFixedWeights)
{
    EXPECT_EQ (rankOf ("1.10.0"), rankOf ("2.0.0"));
    EXPECT_EQ (rankOf ("1.0.0beta100"), rankOf ("1.0.1beta0"));
}

} // namespace mk::pluginCore::test
