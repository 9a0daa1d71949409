// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/LevelAssembler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <numeric>

namespace mk::orlo::test
{
namespace
{
/** One part of a pixel, of one row. */
struct PartOfPixel
{
    int pixel;
    bool hasFirst, hasLast;
    float value;
};

using PartsOfSection = std::vector<PartOfPixel>;

void addTen (Column& column)
{
    for (auto& value : column)
        value += 10.0f;
}

/** Brings sections of a picture one row high in an order and returns the picture. */
[[nodiscard]] std::vector<float>
    assemble (int width, const std::vector<PartsOfSection>& sections, const std::vector<size_t>& order)
{
    LevelGrid grid (width, 1);
    LevelAssembler assembler (grid, addTen);

    for (const auto index : order)
    {
        LevelAssembler::SectionInput input (assembler);

        for (const auto& part : sections[index])
        {
            Column column { part.value };
            input.take ({ part.pixel, part.hasFirst, part.hasLast, column });
        }

        assembler.complete (std::int64_t (index), std::move (input));
    }

    std::vector<float> picture;

    for (int x = 0; x < width; ++x)
        picture.push_back (grid.get (x, 0));

    return picture;
}

/** Expects the same picture from every order of the sections. */
void expectInEveryOrder (const std::vector<PartsOfSection>& sections, const std::vector<float>& expected)
{
    std::vector<size_t> order (sections.size());
    std::iota (order.begin(), order.end(), size_t (0));

    do
        EXPECT_EQ (assemble (int (expected.size()), sections, order), expected) << testing::PrintToString (order);
    while (std::next_permutation (order.begin(), order.end()));
}
} // namespace

TEST (LevelAssembler, FinishesEachPixelOnce)
{
    expectInEveryOrder ({ { { 0, true, true, 1 }, { 1, true, true, 2 } }, { { 2, true, true, 3 } } }, { 11, 12, 13 });
}

TEST (LevelAssembler, MergesAPixelThatTwoSectionsShareByMaximum)
{
    expectInEveryOrder ({ { { 0, true, true, 1 }, { 1, true, false, 2 } },
                          { { 1, false, true, 5 }, { 2, true, false, 9 } },
                          { { 2, false, true, 3 } } },
                        { 11, 15, 19 });
}

TEST (LevelAssembler, MergesAPixelThatIsLongerThanSections)
{
    expectInEveryOrder ({ { { 0, true, false, 1 } },
                          { { 0, false, false, 7 } },
                          { { 0, false, false, 4 } },
                          { { 0, false, true, 2 } } },
                        { 17 });
}

TEST (LevelAssembler, TheFirstOfEqualLevelsStaysInEveryOrder)
{
    for (const auto first : { 0.0f, -0.0f })
    {
        std::vector<size_t> order { 0, 1, 2 };

        do
        {
            LevelGrid grid (1, 1);
            LevelAssembler assembler (grid, [] (Column&) {});
            const float values[] { first, -first, first };

            for (const auto index : order)
            {
                LevelAssembler::SectionInput input (assembler);
                Column column { values[index] };
                input.take ({ 0, index == 0, index == 2, column });
                assembler.complete (std::int64_t (index), std::move (input));
            }

            EXPECT_EQ (std::bit_cast<unsigned> (grid.get (0, 0)), std::bit_cast<unsigned> (first));
        } while (std::next_permutation (order.begin(), order.end()));
    }
}

} // namespace mk::orlo::test
