// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/analysis/ClassicColumnMapper.h"

#include "orlo/analysis/FrequencyScale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace mk::orlo::test
{
namespace
{

class ClassicColumnMapperTest : public testing::Test
{
protected:
    ClassicColumnMapperTest()
    {
        settings.enhanced = false;
        settings.numRows = 600;
        scale.setScaleType (FrequencyScale::log);
        scale.setRange (settings.minHz, settings.maxHz);
    }

    /** Magnitudes from nothing to full scale. */
    [[nodiscard]] Frame makeFrame (juce::int64 seed) const
    {
        juce::Random random (seed);
        Frame frame (1025);

        for (auto& magnitude : frame.magnitudes)
            magnitude = random.nextInt (10) == 0 ? 0.0f : std::pow (10.0f, -7.5f * random.nextFloat());

        return frame;
    }

    ColumnSettings settings;
    FrequencyScale scale;
    ClassicColumnMapper classic;
};

TEST_F (ClassicColumnMapperTest, MagnitudesThenLevelsEqualAFillInOneStep)
{
    Column whole (600), halves (600);
    classic.fill (makeFrame (1), settings, scale, whole);
    classic.fillMagnitudes (makeFrame (1), settings, scale, halves);
    ClassicColumnMapper::magnitudesToLevels (settings, halves);
    EXPECT_EQ (whole, halves);
}

TEST_F (ClassicColumnMapperTest, MergingMagnitudesEqualsMergingLevels)
{
    Column magnitudes (600), levels (600), column (600);

    for (int seed = 0; seed < 50; ++seed)
    {
        const auto frame = makeFrame (seed);
        const auto louder = [] (float a, float b) { return std::max (a, b); };
        classic.fill (frame, settings, scale, column);
        std::transform (levels.begin(), levels.end(), column.begin(), levels.begin(), louder);
        classic.fillMagnitudes (frame, settings, scale, column);
        std::transform (magnitudes.begin(), magnitudes.end(), column.begin(), magnitudes.begin(), louder);
    }

    ClassicColumnMapper::magnitudesToLevels (settings, magnitudes);
    EXPECT_EQ (magnitudes, levels);
}

TEST_F (ClassicColumnMapperTest, NoMagnitudeIsNotANumber)
{
    auto frame = makeFrame (1);
    frame.magnitudes[100] = std::numeric_limits<float>::infinity();
    frame.magnitudes[3] = std::numeric_limits<float>::quiet_NaN();

    Column column (600);
    classic.fillMagnitudes (frame, settings, scale, column);

    for (const auto magnitude : column)
        EXPECT_GE (magnitude, 0.0f);
}

} // namespace
} // namespace mk::orlo::test
