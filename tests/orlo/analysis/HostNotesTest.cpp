// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/HostNotes.h"

#include <gtest/gtest.h>

#include <cmath>

namespace mk::orlo::test
{
namespace
{
constexpr double rate = 48000.0;

/** A note of a song at 120 quarters a minute: a quarter lasts 24000 samples. */
[[nodiscard]] HostNote makeNote (std::int64_t position, double quarters, double tempo = 120.0)
{
    return { position, quarters, 4.0 * std::floor (quarters / 4.0), tempo, 4, 4 };
}

TEST (HostNotes, KnowNothingWithoutAHost)
{
    HostNotes notes;
    notes.add ({}, rate);
    EXPECT_FALSE (notes.find (0).isKnown());
    EXPECT_FALSE (notes.find (1000000).isKnown());
    EXPECT_TRUE (notes.getAll().empty());
}

TEST (HostNotes, OfASteadySongAreOneForEachBar)
{
    HostNotes notes;

    for (std::int64_t position = 0; position < 20 * 24000; position += 500)
        notes.add (makeNote (position, double (position) / 24000.0), rate);

    const auto all = notes.getAll();
    ASSERT_EQ (all.size(), 5u);
    EXPECT_EQ (all[2].position, 8 * 24000);
    EXPECT_EQ (all[2].barStart, 8.0);

    const auto note = notes.find (10 * 24000 + 100);
    EXPECT_EQ (note.position, 8 * 24000);
    EXPECT_NEAR (note.getQuartersAt (10 * 24000, rate), 10.0, 1.0e-9);
    EXPECT_EQ (note.numerator, 4);
    EXPECT_EQ (note.denominator, 4);
}

TEST (HostNotes, SayWhenTheSongJumpsChangesItsTempoOrStops)
{
    HostNotes notes;
    notes.add (makeNote (0, 0.0), rate);
    notes.add (makeNote (500, 100.0), rate);
    notes.add (makeNote (1000, 100.0 + 500.0 / 24000.0, 60.0), rate);
    notes.add ({ 1500 }, rate);
    notes.add ({ 2000 }, rate);
    notes.add (makeNote (2500, 3.0), rate);

    EXPECT_EQ (notes.getAll().size(), 5u);
    EXPECT_EQ (notes.find (499).quarters, 0.0);
    EXPECT_EQ (notes.find (500).quarters, 100.0);
    EXPECT_EQ (notes.find (1499).quartersPerMinute, 60.0);
    EXPECT_FALSE (notes.find (2499).isKnown());
    EXPECT_EQ (notes.find (9999).quarters, 3.0);
}

TEST (HostNotes, ForgetTheOldestWhenThereIsNoRoom)
{
    HostNotes notes;

    for (std::int64_t i = 0; i < 2 * HostNotes::capacity; ++i)
        notes.add (makeNote (i, double (2 * i)), rate);

    const auto all = notes.getAll();
    ASSERT_EQ (std::int64_t (all.size()), HostNotes::capacity);
    EXPECT_EQ (all.front().position, HostNotes::capacity);
    EXPECT_FALSE (notes.find (HostNotes::capacity - 1).isKnown());
    EXPECT_EQ (notes.find (HostNotes::capacity).quarters, double (2 * HostNotes::capacity));
    EXPECT_EQ (notes.find (2 * HostNotes::capacity).position, 2 * HostNotes::capacity - 1);
}

} // namespace
} // namespace mk::orlo::test
