// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/text/LeadingInteger.h"

#include <gtest/gtest.h>

#include <limits>

namespace mk::pluginCore::test
{

TEST (LeadingInteger, IsReadUpToTheFirstOtherCharacter)
{
    EXPECT_EQ (parseLeadingInteger ("1763683200000"), 1763683200000);
    EXPECT_EQ (parseLeadingInteger (" \t-12.7"), -12);
    EXPECT_EQ (parseLeadingInteger ("+7x"), 7);
    EXPECT_EQ (parseLeadingInteger (""), 0);
    EXPECT_EQ (parseLeadingInteger ("x7"), 0);
    EXPECT_EQ (parseLeadingInteger ("--7"), 0);
}

TEST (LeadingInteger, BeyondTheRangeIsClamped)
{
    EXPECT_EQ (parseLeadingInteger ("9223372036854775807"), std::numeric_limits<juce::int64>::max());
    EXPECT_EQ (parseLeadingInteger ("9223372036854775808"), std::numeric_limits<juce::int64>::max());
    EXPECT_EQ (parseLeadingInteger ("-99999999999999999999"), std::numeric_limits<juce::int64>::min());
}

} // namespace mk::pluginCore::test
