// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/display/PixelGrid.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{
namespace
{

TEST (PixelGrid, KeepsWholeCoordinatesAtWholeScales)
{
    for (const auto scale : { 1.0f, 2.0f, 3.0f })
    {
        const PixelGrid grid { scale };
        EXPECT_EQ (grid.snap (juce::Rectangle { 3, 7, 11, 13 }), (juce::Rectangle { 3.0f, 7.0f, 11.0f, 13.0f }));
        EXPECT_EQ (grid.snapLine ({ 3, 7, 11, 1 }), (juce::Rectangle { 3.0f, 7.0f, 11.0f, 1.0f }));
    }
}

TEST (PixelGrid, SnapsEdgesToPixels)
{
    const PixelGrid grid { 1.5f };
    const auto area = grid.snap (juce::Rectangle { 1, 3, 4, 6 }) * 1.5f;
    EXPECT_EQ (area, juce::Rectangle<float>::leftTopRightBottom (2.0f, 5.0f, 8.0f, 14.0f));
}

TEST (PixelGrid, AdjacentEdgesStayAdjacent)
{
    const PixelGrid grid { 1.25f };

    for (int y = 0; y < 40; ++y)
        EXPECT_EQ (grid.snap (juce::Rectangle { 0, y, 1, 3 }).getBottom(),
                   grid.snap (juce::Rectangle { 0, y + 3, 1, 2 }).getY());
}

TEST (PixelGrid, LinesAreWholePixelsThickAndEndWhereTheirUnitEnds)
{
    for (int y = 0; y < 40; ++y)
    {
        const auto line = PixelGrid { 1.5f }.snapLine ({ 0, y, 9, 1 }) * 1.5f;
        EXPECT_NEAR (line.getHeight(), 1.0f, 1.0e-4f);
        EXPECT_NEAR (line.getBottom(), std::floor (float (y + 1) * 1.5f + 0.5f), 1.0e-4f);
    }

    EXPECT_FLOAT_EQ ((PixelGrid { 0.5f }.snapLine ({ 0, 4, 9, 1 }) * 0.5f).getHeight(), 1.0f);
    EXPECT_TRUE (PixelGrid { 1.5f }.snapLine ({}).isEmpty());
}

} // namespace
} // namespace mk::orlo::test
