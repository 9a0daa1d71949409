// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ColumnMapper.h"

#include "orlo/analysis/FrequencyScale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace mk::orlo::test
{
namespace
{

constexpr auto nan = std::numeric_limits<float>::quiet_NaN();
constexpr auto infinity = std::numeric_limits<float>::infinity();

/** 256 points at 25600 Hz: bins 100 Hz apart, rows 100 Hz apart, bin k on row 128 - k. */
[[nodiscard]] ColumnSettings makeSettings (bool enhanced)
{
    ColumnSettings settings;
    settings.windowLength = 255;
    settings.fftSize = 256;
    settings.hop = 32;
    settings.enhanced = enhanced;
    settings.sampleRate = 25600.0f;
    settings.minHz = 0.0f;
    settings.maxHz = 12800.0f;
    settings.floorDb = -100.0f;
    settings.ceilingDb = 0.0f;
    settings.numRows = 129;
    return settings;
}

[[nodiscard]] Frame makeSilentFrame() { return Frame (129); }

[[nodiscard]] Frame makeFrame (size_t bin, FrameBin value)
{
    auto frame = makeSilentFrame();
    frame.set (bin, value);
    return frame;
}

[[nodiscard]] Column mapOnce (const Frame& frame, const ColumnSettings& settings)
{
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    mapper.map (frame, settings, scale, column);
    return column;
}

[[nodiscard]] std::vector<size_t> litRows (const Column& column)
{
    std::vector<size_t> rows;

    for (size_t y = 0; y < column.size(); ++y)
        if (column[y] > 0.0f)
            rows.push_back (y);

    return rows;
}

//==============================================================================
// A row is evaluated at its lower edge. If rows are as high as bins, that edge lies half way between
// two bins, which lowers the level by 6 dB: 0.06 of a range of 100 dB.
constexpr auto halfWay = 0.0602060f;

TEST (ClassicColumnMapper, ABinLightsTheRowsAroundIt)
{
    const auto column = mapOnce (makeFrame (40, { 0.1f, 0, 0 }), makeSettings (false));
    EXPECT_NEAR (column[128 - 40], 0.8f - halfWay, 1.0e-5f);
    EXPECT_NEAR (column[128 - 41], 0.8f - halfWay, 1.0e-5f);
    EXPECT_EQ (litRows (column), (std::vector<size_t> { 128 - 41, 128 - 40 }));
}

TEST (ClassicColumnMapper, BetweenTwoBinsTheLevelFollowsARaisedCosine)
{
    auto settings = makeSettings (false);
    settings.numRows = 1281; // ten rows a bin
    const auto column = mapOnce (makeFrame (40, { 1.0f, 0, 0 }), settings);

    const auto expected = [] (float binsAway)
    { return 1.0f + std::log10 (0.5f * (1.0f + std::cos (binsAway * 3.14159265f))) / 5.0f; };
    EXPECT_NEAR (column[1280 - 403], expected (0.25f), 1.0e-3f);
    EXPECT_NEAR (column[1280 - 405], expected (0.45f), 1.0e-3f);
    EXPECT_NEAR (column[1280 - 396], expected (-0.45f), 1.0e-3f);
}

TEST (ClassicColumnMapper, ARowOverSeveralBinsShowsTheLoudest)
{
    auto settings = makeSettings (false);
    settings.numRows = 9; // sixteen bins a row
    auto frame = makeFrame (70, { 0.1f, 0, 0 });
    frame.magnitudes[66] = 0.01f;
    const auto column = mapOnce (frame, settings);
    EXPECT_NEAR (column[8 - 4], 0.8f, 1.0e-5f);
}

TEST (ClassicColumnMapper, TheLowestRowsExcludeDC)
{
    const auto column = mapOnce (makeFrame (0, { 1.0f, 0, 0 }), makeSettings (false));
    EXPECT_TRUE (litRows (column).empty());
}

TEST (ClassicColumnMapper, APictureOfOneRowShowsTheLoudestOfAll)
{
    auto settings = makeSettings (false);
    settings.numRows = 1;
    const auto column = mapOnce (makeFrame (77, { 0.1f, 0, 0 }), settings);
    ASSERT_EQ (column.size(), 1u);
    EXPECT_NEAR (column[0], 0.8f, 1.0e-5f);
}

TEST (ClassicColumnMapper, AFrameOfAnotherSizeIsReadWithinItsBounds)
{
    auto settings = makeSettings (false);
    settings.fftSize = 8192;
    const auto small = mapOnce (makeFrame (40, { 0.1f, 0, 0 }), settings);
    EXPECT_EQ (small.size(), 129u);

    settings.fftSize = 256;
    const auto large = mapOnce (Frame (4097, { 0.1f, 0, 0 }), settings);
    EXPECT_NEAR (large[60], 0.8f, 1.0e-5f);

    EXPECT_EQ (litRows (mapOnce (Frame(), settings)).size(), 0u);
}

TEST (ClassicColumnMapper, AFloorAboveTheCeilingInverts)
{
    auto settings = makeSettings (false);
    settings.floorDb = 0.0f;
    settings.ceilingDb = -100.0f;
    const auto column = mapOnce (makeFrame (40, { 0.1f, 0, 0 }), settings);
    EXPECT_NEAR (column[88], 0.2f + halfWay, 1.0e-5f);
    EXPECT_EQ (column[20], 1.0f);
}

TEST (ClassicColumnMapper, AFloorAtTheCeilingGivesOnlyZeroOneOrNaN)
{
    auto settings = makeSettings (false);
    settings.floorDb = settings.ceilingDb = -20.0f;
    auto frame = makeFrame (40, { 0.1f, 0, 0 });
    frame.magnitudes[80] = 0.5f;

    for (const auto level : mapOnce (frame, settings))
        EXPECT_TRUE (level == 0.0f || level == 1.0f || std::isnan (level));
}

TEST (ClassicColumnMapper, RowsFollowARangeThatChanges)
{
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    auto settings = makeSettings (false);
    mapper.map (makeFrame (40, { 0.1f, 0, 0 }), settings, scale, column);
    EXPECT_GT (column[88], 0.7f);

    settings.minHz = 4000.0f;
    mapper.map (makeFrame (40, { 0.1f, 0, 0 }), settings, scale, column);
    EXPECT_GT (column[128], 0.7f);
    EXPECT_EQ (column[88], 0.0f);

    scale.setScaleType (FrequencyScale::mel);
    settings.minHz = 0.0f;
    mapper.map (makeFrame (40, { 0.1f, 0, 0 }), settings, scale, column);
    const auto row = size_t (std::lround ((1.0f - scale.positionForFrequency (4000.0f)) * 128.0f));
    EXPECT_GT (std::max ({ column[row - 1], column[row], column[row + 1] }), 0.7f);
}

//==============================================================================
/** Returns the columns that one frame draws, oldest first. */
[[nodiscard]] std::vector<Column> plot (const Frame& frame, const ColumnSettings& settings, size_t numColumns = 9)
{
    FrequencyScale scale;
    scale.setRange (settings.minHz, settings.maxHz);
    std::vector<Column> columns (numColumns, Column (size_t (settings.numRows), 0.0f));
    EnhancedColumnPlotter().plot (frame, settings, scale, columns);
    return columns;
}

[[nodiscard]] size_t countLit (const std::vector<Column>& columns)
{
    size_t count = 0;

    for (const auto& column : columns)
        count += litRows (column).size();

    return count;
}

TEST (EnhancedColumnPlotter, APointIsMovedByItsShifts)
{
    // The window's centre is sample 127, so at a hop of 32 it lies in column 4; 64 samples later is column 6.
    const auto columns = plot (makeFrame (40, { 0.1f, 64.0f, 80.0f }), makeSettings (true));
    EXPECT_EQ (countLit (columns), 1u);
    EXPECT_NEAR (columns[6][128 - 41], 0.8f, 1.0e-5f);
}

TEST (EnhancedColumnPlotter, TheLouderOfTwoPointsOnOnePixelWins)
{
    auto frame = makeFrame (40, { 0.1f, 0.0f, 0.0f });
    frame.set (41, { 0.5f, 0.0f, -99.0f });
    const auto columns = plot (frame, makeSettings (true));
    EXPECT_EQ (countLit (columns), 1u);
    EXPECT_NEAR (columns[4][128 - 40], 1.0f + std::log10 (0.5f) / 5.0f, 1.0e-5f);
}

TEST (EnhancedColumnPlotter, PointsWithInvalidValuesAreLeftOut)
{
    const auto settings = makeSettings (true);

    for (const auto& bin : { FrameBin { 0.1f, 128.0f, 0.0f },
                             FrameBin { 0.1f, -128.0f, 0.0f },
                             FrameBin { 0.1f, 0.0f, 100.0f },
                             FrameBin { 0.1f, 0.0f, -100.0f },
                             FrameBin { 0.1f, nan, 0.0f },
                             FrameBin { 0.1f, 0.0f, nan },
                             FrameBin { 0.1f, infinity, 0.0f },
                             FrameBin { 0.1f, 0.0f, infinity },
                             FrameBin { nan, 0.0f, 0.0f },
                             FrameBin { 1.0e-7f, 0.0f, 0.0f },
                             FrameBin { 1.0e-5f, 0.0f, 0.0f } })
        EXPECT_EQ (countLit (plot (makeFrame (40, bin), settings)), 0u)
            << bin.magnitude << " " << bin.timeShift << " " << bin.freqShift;

    // The ends of the window are included.
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.1f, 127.0f, 0.0f }), settings)), 1u);
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.1f, -127.0f, 0.0f }), settings)), 1u);
}

TEST (EnhancedColumnPlotter, DCAndWhatLiesOnOrBeyondTheRangeIsLeftOut)
{
    auto settings = makeSettings (true);
    EXPECT_EQ (countLit (plot (makeFrame (0, { 1.0f, 0.0f, 50.0f }), settings)), 0u);
    EXPECT_EQ (countLit (plot (makeFrame (128, { 1.0f, 0.0f, 0.0f }), settings)), 0u);
    EXPECT_EQ (countLit (plot (makeFrame (128, { 1.0f, 0.0f, -1.0f }), settings)), 1u);

    settings.minHz = 4000.0f;
    EXPECT_EQ (countLit (plot (makeFrame (40, { 1.0f, 0.0f, 0.0f }), settings)), 0u);
    EXPECT_EQ (countLit (plot (makeFrame (40, { 1.0f, 0.0f, 1.0f }), settings)), 1u);
}

TEST (EnhancedColumnPlotter, AnInfiniteMagnitudeIsAsLoudAsTheCeiling)
{
    const auto columns = plot (makeFrame (40, { infinity, 0.0f, 0.0f }), makeSettings (true));
    EXPECT_EQ (columns[4][88], 1.0f);
}

TEST (EnhancedColumnPlotter, AShortHistoryTakesOnlyWhatItHasRoomFor)
{
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.1f, 127.0f, 0.0f }), makeSettings (true), 3)), 0u);
}

TEST (EnhancedColumnPlotter, AnEmptyRangeOrNoRowsDrawNothing)
{
    auto settings = makeSettings (true);
    settings.minHz = settings.maxHz = 4000.0f;
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.1f, 0.0f, 0.0f }), settings)), 0u);

    settings = makeSettings (true);
    settings.numRows = 0;
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.1f, 0.0f, 0.0f }), settings)), 0u);

    settings.numRows = 1;
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.1f, 0.0f, 0.0f }), settings)), 1u);
}

TEST (EnhancedColumnPlotter, AFloorAtTheCeilingDrawsFullPointsOrNone)
{
    auto settings = makeSettings (true);
    settings.floorDb = settings.ceilingDb = -20.0f;
    EXPECT_EQ (plot (makeFrame (40, { 0.5f, 0.0f, 0.0f }), settings)[4][88], 1.0f);
    EXPECT_EQ (countLit (plot (makeFrame (40, { 0.01f, 0.0f, 0.0f }), settings)), 0u);
}

//==============================================================================
TEST (ColumnMapper, AnEnhancedPointIsShownWhenNoLaterFrameCanReachItsColumn)
{
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    const auto settings = makeSettings (true);

    // The history has ceil (255 / 32) + 1 = 9 columns. The point lies in column 4 of the first frame.
    for (int frame = 0; frame < 12; ++frame)
    {
        mapper.map (frame == 0 ? makeFrame (40, { 0.1f, 0.0f, 0.0f }) : makeSilentFrame(), settings, scale, column);
        EXPECT_EQ (litRows (column).size(), frame == 4 ? 1u : 0u) << frame;
    }
}

TEST (ColumnMapper, PointsOfTwoFramesInOneColumnAreBothShown)
{
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    const auto settings = makeSettings (true);
    mapper.map (makeFrame (40, { 0.1f, 32.0f, 0.0f }), settings, scale, column);
    mapper.map (makeFrame (60, { 0.1f, 0.0f, 0.0f }), settings, scale, column);

    for (int i = 0; i < 4; ++i)
        mapper.map (makeSilentFrame(), settings, scale, column);

    EXPECT_EQ (litRows (column), (std::vector<size_t> { 128 - 60, 128 - 40 }));
}

TEST (ColumnMapper, ClassicShowsEveryFrameAtOnce)
{
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    mapper.map (makeFrame (40, { 0.1f, 0, 0 }), makeSettings (false), scale, column);
    EXPECT_GT (column[88], 0.7f);
    mapper.map (makeSilentFrame(), makeSettings (false), scale, column);
    EXPECT_TRUE (litRows (column).empty());
}

TEST (ColumnMapper, SurvivesEveryChangeOfSizeHopAndMode)
{
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;

    for (int i = 0; i < 400; ++i)
    {
        auto settings = makeSettings (i % 3 != 0);
        settings.numRows = (i * 37) % 200;
        settings.hop = 1 + (i * 61) % 300;
        settings.windowLength = (256 << (i % 4)) - 1;
        settings.fftSize = settings.windowLength + 1;
        settings.minHz = float ((i * 97) % 6000);
        const auto frame = Frame (size_t (128 << (i % 3)) + 1, { 0.5f, float (i % 100) - 50.0f, 10.0f });
        mapper.map (frame, settings, scale, column);
        ASSERT_EQ (column.size(), size_t (settings.numRows));

        for (const auto level : column)
            ASSERT_TRUE (level >= 0.0f && level <= 1.0f);
    }
}

TEST (ColumnOfSeveralFrames, ShowsThePointsOfAllOfThem)
{
    // The two frames have their energy of bin 50 in different places, so neither hides the other's.
    auto frame = makeFrame (50, { 0.5f, 0.0f, 0.0f });
    frame.set (60, { 0.1f, 0.0f, 0.0f });
    frame.others.push_back (makeFrame (50, { 0.25f, 0.0f, 60.0f }));
    frame.others[0].set (60, { 0.2f, 0.0f, 0.0f });

    const auto settings = makeSettings (true);
    FrequencyScale scale;
    ColumnMapper mapper;
    Column column;
    mapper.map (frame, settings, scale, column);

    // Time shift 0 lies in the middle of the window, so the points come out after half of it.
    const auto silent = makeSilentFrame();

    for (int i = 0; i < 20 && litRows (column).empty(); ++i)
        mapper.map (silent, settings, scale, column);

    EXPECT_EQ (litRows (column), (std::vector<size_t> { 68, 77, 78 }));
    EXPECT_NEAR (column[78], settings.levelForDecibels (decibelsForMagnitude (0.5f)), 1.0e-4f);
    EXPECT_NEAR (column[77], settings.levelForDecibels (decibelsForMagnitude (0.25f)), 1.0e-4f);
    EXPECT_NEAR (column[68], settings.levelForDecibels (decibelsForMagnitude (0.2f)), 1.0e-4f);
}

TEST (ColumnOfSeveralFrames, ShowsTheLoudestOfEachBinInClassic)
{
    auto frame = makeFrame (50, { 0.5f, 0.0f, 0.0f });
    frame.set (60, { 0.1f, 0.0f, 0.0f });
    frame.others.push_back (makeFrame (50, { 0.25f, 0.0f, 0.0f }));
    frame.others[0].set (60, { 0.2f, 0.0f, 0.0f });

    auto loudest = makeFrame (50, { 0.5f, 0.0f, 0.0f });
    loudest.set (60, { 0.2f, 0.0f, 0.0f });

    auto settings = makeSettings (false);
    EXPECT_EQ (mapOnce (frame, settings), mapOnce (loudest, settings));

    // With the floor above the ceiling the louder bin is the darker one.
    std::swap (settings.floorDb, settings.ceilingDb);
    EXPECT_EQ (mapOnce (frame, settings), mapOnce (loudest, settings));
}

} // namespace
} // namespace mk::orlo::test
