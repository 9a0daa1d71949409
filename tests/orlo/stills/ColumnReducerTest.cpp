// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/stills/ColumnReducer.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{
using testing::ElementsAre;

/** A merged part of a pixel, of one row. */
struct MergedPart
{
    int pixel;
    bool hasFirst, hasLast;
    float value;

    bool operator== (const MergedPart&) const = default;
};

[[nodiscard]] PixelMap makeMap (size_t numFrames, int framesPerColumn, int width)
{
    return { std::int64_t (numFrames) / framesPerColumn, framesPerColumn, width };
}

/** Adds some of the columns of one row and returns what comes out. */
[[nodiscard]] std::vector<MergedPart>
    reduceSome (const std::vector<float>& columns, const PixelMap& map, size_t first, size_t end)
{
    std::vector<MergedPart> parts;
    ColumnReducer reducer (map,
                           std::int64_t (first),
                           std::int64_t (end),
                           [&] (const ColumnReducer::Part& part) {
                               parts.push_back ({ part.pixel, part.hasFirst, part.hasLast, part.merged.front() });
                           });

    for (auto i = first; i < end; ++i)
        reducer.add ({ columns[i] });

    return parts;
}

/** Adds all columns and returns the pixels. */
[[nodiscard]] std::vector<float> reduce (const std::vector<float>& columns, int framesPerColumn, int width)
{
    std::vector<float> results;

    for (const auto& part : reduceSome (columns, makeMap (columns.size(), framesPerColumn, width), 0, columns.size()))
    {
        EXPECT_TRUE (part.hasFirst && part.hasLast);
        EXPECT_EQ (part.pixel, int (results.size()));
        results.push_back (part.value);
    }

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
    ColumnReducer reducer ({ 2, 1, 1 }, 0, 2, [&] (const ColumnReducer::Part& part) { result = part.merged; });
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

TEST (ColumnReducer, LetsTheSinkChangeOrTakeTheColumn)
{
    std::vector<float> results;
    ColumnReducer reducer ({ 3, 1, 3 },
                           0,
                           3,
                           [&] (const ColumnReducer::Part& part)
                           {
                               results.push_back (part.merged.front());
                               part.merged.front() = 100.0f;

                               if (part.pixel == 1)
                                   const auto taken = std::move (part.merged);
                           });
    reducer.add ({ 1 });
    reducer.add ({ 2 });
    reducer.add ({ 3 });
    EXPECT_THAT (results, ElementsAre (1, 2, 3));
}

TEST (ColumnReducer, SaysWhichEndsOfAPixelARunHas)
{
    const std::vector<float> columns { 1, 5, 2, 3, 4, 0 };
    const auto map = makeMap (6, 1, 2);

    EXPECT_THAT (reduceSome (columns, map, 0, 2), ElementsAre (MergedPart { 0, true, false, 5 }));
    EXPECT_THAT (reduceSome (columns, map, 2, 4),
                 ElementsAre (MergedPart { 0, false, true, 2 }, MergedPart { 1, true, false, 3 }));
    EXPECT_THAT (reduceSome (columns, map, 4, 5), ElementsAre (MergedPart { 1, false, false, 4 }));
    EXPECT_THAT (reduceSome (columns, map, 5, 6), ElementsAre (MergedPart { 1, false, true, 0 }));
    EXPECT_THAT (reduceSome (columns, map, 3, 6), ElementsAre (MergedPart { 1, true, true, 4 }));
}

/** NaNs and zeros of both signs, which depend on the order in which they are merged. */
TEST (ColumnReducer, MergingTheRunsOfAnyCutGivesTheSameBitsAsOneRun)
{
    constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
    juce::Random random (3);

    for (int round = 0; round < 2000; ++round)
    {
        const float values[] { nan, 0.0f, -0.0f, 0.5f, 1.0f };
        std::vector<float> columns (9);

        for (auto& column : columns)
            column = values[random.nextInt (5)];

        const auto map = makeMap (9, 1, 1 + random.nextInt (3));
        std::vector<float> whole, merged;

        for (const auto& part : reduceSome (columns, map, 0, 9))
            whole.push_back (part.value);

        for (size_t first = 0; first < 9;)
        {
            const auto end = std::min<size_t> (9, first + 1 + size_t (random.nextInt (5)));

            for (const auto& part : reduceSome (columns, map, first, end))
            {
                if (part.hasFirst)
                {
                    merged.push_back (part.value);
                }
                else
                {
                    Column left { merged.back() };
                    mergeColumns (left, { part.value });
                    merged.back() = left.front();
                }
            }

            first = end;
        }

        ASSERT_EQ (whole.size(), merged.size());

        for (size_t i = 0; i < whole.size(); ++i)
            ASSERT_TRUE (std::isnan (whole[i])
                             ? std::isnan (merged[i])
                             : std::bit_cast<unsigned> (whole[i]) == std::bit_cast<unsigned> (merged[i]));
    }
}

} // namespace mk::orlo::test
