// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/NumberText.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
using namespace render;

TEST (NumberText, ReadsNumbersWithAndWithoutTheirUnit)
{
    EXPECT_EQ (parseNumber ("-90"), -90.0);
    EXPECT_EQ (parseNumber ("0.25"), 0.25);
    EXPECT_EQ (parseNumber ("1e3"), 1000.0);
    EXPECT_EQ (parseNumber ("-90dB", "dB"), -90.0);
    EXPECT_EQ (parseNumber ("-90 db ", "dB"), -90.0);
    EXPECT_EQ (parseNumber ("-90", "dB"), -90.0);
}

TEST (NumberText, RefusesWhatIsNotANumberAlone)
{
    for (const auto* const text : { "", " ", "x", "9x", "9 Hz", "--9", "nan", "inf", "1e999", "0x10", "1,5" })
        EXPECT_FALSE (parseNumber (text, "dB")) << text;
}

TEST (NumberText, WholeNumbersStayWithinTheirLimits)
{
    EXPECT_EQ (parseWholeNumber ("1", 1, 10), 1);
    EXPECT_EQ (parseWholeNumber ("10", 1, 10), 10);

    for (const auto* const text : { "0", "11", "-1", "1.5", "5x", "", "99999999999999999999" })
        EXPECT_FALSE (parseWholeNumber (text, 1, 10)) << text;
}

} // namespace mk::orlo::test
