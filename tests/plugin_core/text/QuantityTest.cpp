// SPDX-License-Identifier: AGPL-3.0-or-later
// Numbers as users type them.
#include "plugin_core/text/NumberText.h"

#include <gtest/gtest.h>

namespace mk::pluginCore
{

TEST (Quantity, IsReadWithAndWithoutItsUnit)
{
    EXPECT_EQ (parseQuantity ("-90"), -90.0);
    EXPECT_EQ (parseQuantity ("0.25"), 0.25);
    EXPECT_EQ (parseQuantity ("1e3"), 1000.0);
    EXPECT_EQ (parseQuantity ("-90dB", "dB"), -90.0);
    EXPECT_EQ (parseQuantity ("-90 db ", "dB"), -90.0);
    EXPECT_EQ (parseQuantity ("-90", "dB"), -90.0);
}

TEST (Quantity, IsRefusedIfTheTextHoldsAnythingElse)
{
    for (const auto* const text :
         { "", " ", "x", "9x", "9 Hz", "9 dB dB", "dB", "--9", "nan", "inf", "1e999", "0x10", "1,5" })
        EXPECT_FALSE (parseQuantity (text, "dB")) << text;
}

TEST (WholeNumber, StaysWithinItsLimits)
{
    EXPECT_EQ (parseWholeNumber ("1", 1, 10), 1);
    EXPECT_EQ (parseWholeNumber ("10", 1, 10), 10);

    for (const auto* const text : { "0", "11", "-1", "1.5", "5x", "", "99999999999999999999" })
        EXPECT_FALSE (parseWholeNumber (text, 1, 10)) << text;
}

} // namespace mk::pluginCore
