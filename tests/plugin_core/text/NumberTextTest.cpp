// SPDX-License-Identifier: AGPL-3.0-or-later
#include "plugin_core/text/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mk::pluginCore
{
namespace
{

TEST (NumberText, NumbersOfEveryFormAreRead)
{
    EXPECT_EQ (parseNumber ("0"), 0.0);
    EXPECT_EQ (parseNumber ("-100.0"), -100.0);
    EXPECT_EQ (parseNumber ("+7"), 7.0);
    EXPECT_EQ (parseNumber (" 2.5 "), 2.5);
    EXPECT_EQ (parseNumber (".5"), 0.5);
    EXPECT_EQ (parseNumber ("5."), 5.0);
    EXPECT_EQ (parseNumber ("1e2"), 100.0);
    EXPECT_EQ (parseNumber ("25E-1"), 2.5);
}

TEST (NumberText, AnythingElseIsNoNumber)
{
    for (const auto* text : { "",    " ",   "abc", "nan", "NaN", "inf", "-inf", "12abc", "1 2",   "1,5",
                              "--1", "+-1", ".",   "-",   "e5",  "1e",  "1e+",  "0x10",  "1.2.3", "true" })
        EXPECT_FALSE (parseNumber (text).has_value()) << text;
}

TEST (NumberText, ExponentsThatWouldOverflowTheReaderAreRefused)
{
    EXPECT_FALSE (parseNumber ("1e99999999999999999999").has_value());
    EXPECT_FALSE (parseNumber ("1e-99999999999999999999").has_value());
    EXPECT_FALSE (parseNumber (juce::String::repeatedString ("9", 100000)).has_value());
}

TEST (NumberText, AVeryLargeNumberIsInfinite) { EXPECT_TRUE (std::isinf (parseNumber ("1e999").value())); }

TEST (NumberText, IntegersStayInTheirRange)
{
    EXPECT_EQ (parseInteger ("1050"), 1050);
    EXPECT_EQ (parseInteger ("-1"), -1);
    EXPECT_EQ (parseInteger ("2.9"), 2);
    EXPECT_EQ (parseInteger ("-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ (parseInteger ("99999999999999999999"), std::numeric_limits<int>::max());
    EXPECT_EQ (parseInteger ("-99999999999999999999"), std::numeric_limits<int>::min());
    EXPECT_FALSE (parseInteger ("wide").has_value());
}

TEST (NumberText, AnIntegerEndsAtTheFirstCharacterThatIsNoDigit)
{
    EXPECT_EQ (parseInteger (" 12px"), 12);
    EXPECT_EQ (parseInteger ("+7 8"), 7);
    EXPECT_EQ (parseInteger ("1e3"), 1);
    EXPECT_EQ (parseInteger ("-5abc"), -5);
    EXPECT_EQ (parseInteger (juce::String::repeatedString ("9", 100000)), std::numeric_limits<int>::max());

    for (const auto* text : { "", " ", "-", "+-1", "- 1", "x1", ".5" })
        EXPECT_FALSE (parseInteger (text).has_value()) << text;
}

} // namespace
} // namespace mk::pluginCore
