// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/TimeTicks.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{

/** Ten seconds at 1 kHz, and a range of it. */
[[nodiscard]] TimeView makeTenSeconds (double start, double length) { return { 0.0, 10000.0, 1000.0, start, length }; }

TEST (TimeTicks, SecondsAreRoundAndBeforeTheEnd)
{
    const auto ticks = makeSecondTicks (makeTenSeconds (5500.0, 4500.0), 900, 100);
    ASSERT_EQ (ticks.size(), 10u);
    EXPECT_EQ (ticks.front().text, "-4.5 s");
    EXPECT_DOUBLE_EQ (ticks.front().share, 0.0);
    EXPECT_EQ (ticks[1].text, "-4.0 s");
    EXPECT_EQ (ticks.back().text, "0.0 s");
    EXPECT_DOUBLE_EQ (ticks.back().share, 1.0);
}

TEST (TimeTicks, SecondsAreAsFarApartAsAskedAtEveryZoom)
{
    for (auto length = 5.0; length < 10000.0; length *= 1.37)
    {
        const auto ticks = makeSecondTicks (makeTenSeconds (123.4, length), 800, 90);
        ASSERT_GE (ticks.size(), 2u) << length;

        for (size_t i = 1; i < ticks.size(); ++i)
        {
            EXPECT_GE ((ticks[i].share - ticks[i - 1].share) * 800.0, 90.0 - 1.0e-6) << length;
            EXPECT_NE (ticks[i].text, ticks[i - 1].text);
        }
    }
}

TEST (TimeTicks, NoViewHasNoTicks)
{
    EXPECT_TRUE (makeSecondTicks (makeTenSeconds (0.0, 100.0), 0, 90).empty());
    EXPECT_TRUE (makeBarTicks (makeTenSeconds (0.0, 100.0), {}, 800, 90).empty());
}

/** At 120 beats a minute a quarter note lasts 500 of the view's samples. */
[[nodiscard]] HostNote makeBarNote (std::int64_t position, double quarters, int numerator, int denominator)
{
    HostNote note;
    note.position = position;
    note.quarters = quarters;
    note.barStart = quarters;
    note.quartersPerMinute = 120.0;
    note.numerator = numerator;
    note.denominator = denominator;
    return note;
}

[[nodiscard]] juce::String joinTicks (const std::vector<TimeTick>& ticks)
{
    juce::StringArray texts;

    for (const auto& tick : ticks)
        texts.add (tick.text);

    return texts.joinIntoString (" ");
}

TEST (TimeTicks, BarsBeatsAndTheirQuartersDependOnTheZoom)
{
    const std::vector<HostNote> notes { makeBarNote (0, 8.0, 4, 4) };

    EXPECT_EQ (joinTicks (makeBarTicks (makeTenSeconds (0.0, 10000.0), notes, 500, 90)), "3 4 5 6 7");
    EXPECT_EQ (joinTicks (makeBarTicks (makeTenSeconds (0.0, 10000.0), notes, 240, 90)), "3 5 7");
    EXPECT_EQ (joinTicks (makeBarTicks (makeTenSeconds (1000.0, 2000.0), notes, 400, 90)), "3.3 3.4 4.1 4.2");
    EXPECT_EQ (joinTicks (makeBarTicks (makeTenSeconds (1900.0, 400.0), notes, 400, 90)), "4.1.1 4.1.2 4.1.3");

    const auto ticks = makeBarTicks (makeTenSeconds (1000.0, 2000.0), notes, 400, 90);
    EXPECT_NEAR (ticks[2].share, 0.5, 1.0e-9);
}

TEST (TimeTicks, BarsFollowTheTimeSignature)
{
    const std::vector<HostNote> notes { makeBarNote (0, 0.0, 6, 8) };
    EXPECT_EQ (joinTicks (makeBarTicks (makeTenSeconds (0.0, 3000.0), notes, 1200, 90)),
               "1.1 1.2 1.3 1.4 1.5 1.6 2.1 2.2 2.3 2.4 2.5 2.6");
}

TEST (TimeTicks, BarsAreOnlyWhereTheHostHasToldThem)
{
    HostNote silence;
    silence.position = 4000;
    const std::vector<HostNote> notes { makeBarNote (2000, 4.0, 4, 4), silence, makeBarNote (8000, 40.0, 4, 4) };
    EXPECT_EQ (joinTicks (makeBarTicks (makeTenSeconds (0.0, 10000.0), notes, 2000, 90)),
               "2.1 2.2 2.3 2.4 11.1 11.2 11.3 11.4");
}

} // namespace
} // namespace mk::orlo::test
