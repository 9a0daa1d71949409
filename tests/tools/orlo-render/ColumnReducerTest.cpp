// SPDX-License-Identifier: AGPL-3.0-or-later
#include "tools/orlo-render/ColumnReducer.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace mk::orlo::test
{
namespace
{
using namespace render;
using testing::ElementsAre;

/** Adds columns of one row and returns what comes out. */
[[nodiscard]] std::vector<float> reduce (const std::vector<float>& columns, int framesPerColumn, int width)
{
    std::vector<float> results;
    ColumnReducer reducer (std::int64_t (columns.size()),
                           framesPerColumn,
                           width,
                           [&] (int x, Column& merged)
                           {
                               EXPECT_EQ (x, int (results.size()));
                               results.push_back (merged.front());
                           });

    for (const auto value : columns)
        reducer.add ({ value });

    return results;
}
} // namespace

TEST (ColumnReducer, PassesColumnsUnchangedWhenThereIsAPixelForEach)
{
    EXPECT_THAT (reduce ({ 3, 1, 2 }, 1, 3), ElementsAre (3, 1, 2));
}

TEST (ColumnReducer, MergesNeighboursByMaximum)
{
    EXPECT_THAT (reduce ({ 1, 5, 2, 3, 4, 0 }, 1, 3), ElementsAre (5, 3, 4));
    EXPECT_THAT (reduce ({ 1, 5, 2, 3, 4, 0 }, 1, 1), ElementsAre (5));
}

TEST (ColumnReducer, TakesTheMaximumOfEachRowSeparately)
{
    Column result;
    ColumnReducer reducer (2, 1, 1, [&] (int, Column& merged) { result = merged; });
    reducer.add ({ 1, 8, 3 });
    reducer.add ({ 2, 7, 3 });
    EXPECT_THAT (result, ElementsAre (2, 8, 3));
}

TEST (ColumnReducer, KeepsTheFramesOfAColumnTogether)
{
    // Three columns of two frames in two pixels: the first pixel gets two columns.
    EXPECT_THAT (reduce ({ 1, 2, 9, 3, 4, 5 }, 2, 2), ElementsAre (9, 5));
    EXPECT_THAT (reduce ({ 1, 2, 9, 3, 4, 5 }, 2, 3), ElementsAre (2, 9, 5));
}

TEST (ColumnReducer, PutsColumnIIntoPixelITimesWidthOverColumns)
{
    for (const auto numColumns : { 7, 100, 101, 997 })
        for (const auto width : { 1, 2, 6, 7 })
        {
            std::vector<float> columns, expected (static_cast<size_t> (width), -1.0f);

            for (int i = 0; i < numColumns; ++i)
            {
                columns.push_back (float ((i * 7919) % 1009));
                auto& target = expected[size_t (i * width / numColumns)];
                target = std::max (target, columns.back());
            }

            EXPECT_EQ (reduce (columns, 1, width), expected) << numColumns << " " << width;
        }
}

TEST (ColumnReducer, LetsTheSinkChangeTheColumn)
{
    std::vector<float> results;
    ColumnReducer reducer (2,
                           1,
                           2,
                           [&] (int, Column& merged)
                           {
                               results.push_back (merged.front());
                               merged.front() = 100.0f;
                           });
    reducer.add ({ 1 });
    reducer.add ({ 2 });
    EXPECT_THAT (results, ElementsAre (1, 2));
}

} // namespace mk::orlo::test
