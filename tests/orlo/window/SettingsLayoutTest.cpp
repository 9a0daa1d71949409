// SPDX-License-Identifier: AGPL-3.0-or-later
#include "orlo/window/SettingsLayout.h"

#include <gtest/gtest.h>

#include <array>

namespace mk::orlo
{
namespace
{
using Bounds = juce::Rectangle<int>;

/** An item and its bounds in panels of 241 x 550, 418 x 1000 and 883 x 2112 pixels. */
struct Row
{
    const char* name;
    Bounds SettingsLayout::*item;
    std::array<Bounds, 3> bounds;
};

constexpr std::array sizes { juce::Point<int> (241, 550), juce::Point<int> (418, 1000), juce::Point<int> (883, 2112) };

const std::array<Row, 26> rows { {
    { "title", &SettingsLayout::title, { { { 13, 15, 184, 33 }, { 22, 27, 319, 60 }, { 46, 57, 674, 127 } } } },
    { "presetsButton",
      &SettingsLayout::presetsButton,
      { { { 120, 20, 28, 25 }, { 208, 36, 48, 46 }, { 439, 76, 101, 97 } } } },
    { "analysisHeading",
      &SettingsLayout::analysisHeading,
      { { { 19, 65, 222, 22 }, { 32, 119, 386, 40 }, { 68, 251, 815, 84 } } } },
    { "modeBar", &SettingsLayout::modeBar, { { { 20, 96, 200, 33 }, { 35, 175, 347, 60 }, { 75, 370, 734, 127 } } } },
    { "fftSizeLabel",
      &SettingsLayout::fftSizeLabel,
      { { { 0, 138, 110, 31 }, { 0, 251, 190, 56 }, { 0, 530, 402, 118 } } } },
    { "fftSizeBox",
      &SettingsLayout::fftSizeBox,
      { { { 119, 138, 101, 31 }, { 207, 251, 176, 56 }, { 437, 530, 371, 118 } } } },
    { "displayHeading",
      &SettingsLayout::displayHeading,
      { { { 19, 191, 222, 22 }, { 32, 347, 386, 40 }, { 68, 733, 815, 84 } } } },
    { "hiDPILabel",
      &SettingsLayout::hiDPILabel,
      { { { 90, 191, 24, 22 }, { 156, 347, 42, 40 }, { 329, 733, 88, 84 } } } },
    { "drawModeBar",
      &SettingsLayout::drawModeBar,
      { { { 20, 222, 167, 33 }, { 35, 403, 289, 60 }, { 75, 851, 611, 127 } } } },
    { "autoFreezeToggle",
      &SettingsLayout::autoFreezeToggle,
      { { { 194, 222, 24, 31 }, { 337, 403, 42, 56 }, { 712, 851, 88, 118 } } } },
    { "scaleLabel",
      &SettingsLayout::scaleLabel,
      { { { 0, 263, 94, 31 }, { 0, 479, 163, 56 }, { 0, 1012, 345, 118 } } } },
    { "scaleBox",
      &SettingsLayout::scaleBox,
      { { { 104, 263, 74, 31 }, { 180, 479, 128, 56 }, { 380, 1012, 270, 118 } } } },
    { "keyboardToggle",
      &SettingsLayout::keyboardToggle,
      { { { 182, 263, 18, 31 }, { 317, 479, 31, 56 }, { 670, 1012, 66, 118 } } } },
    { "rulerToggle",
      &SettingsLayout::rulerToggle,
      { { { 202, 263, 18, 31 }, { 351, 479, 31, 56 }, { 743, 1012, 66, 118 } } } },
    { "speedLabel",
      &SettingsLayout::speedLabel,
      { { { 0, 303, 94, 21 }, { 0, 551, 163, 39 }, { 0, 1164, 345, 82 } } } },
    { "speedSlider",
      &SettingsLayout::speedSlider,
      { { { 104, 303, 118, 21 }, { 180, 551, 204, 39 }, { 380, 1164, 431, 82 } } } },
    { "maxFreqLabel",
      &SettingsLayout::maxFreqLabel,
      { { { 0, 331, 94, 21 }, { 0, 602, 163, 39 }, { 0, 1271, 345, 82 } } } },
    { "maxFreqSlider",
      &SettingsLayout::maxFreqSlider,
      { { { 104, 331, 118, 21 }, { 180, 602, 204, 39 }, { 380, 1271, 431, 82 } } } },
    { "minFreqLabel",
      &SettingsLayout::minFreqLabel,
      { { { 0, 359, 94, 21 }, { 0, 653, 163, 39 }, { 0, 1379, 345, 82 } } } },
    { "minFreqSlider",
      &SettingsLayout::minFreqSlider,
      { { { 104, 359, 118, 21 }, { 180, 653, 204, 39 }, { 380, 1379, 431, 82 } } } },
    { "colourHeading",
      &SettingsLayout::colourHeading,
      { { { 19, 403, 222, 22 }, { 32, 732, 386, 40 }, { 68, 1546, 815, 84 } } } },
    { "colourBox",
      &SettingsLayout::colourBox,
      { { { 20, 433, 152, 31 }, { 35, 788, 263, 56 }, { 75, 1664, 556, 118 } } } },
    { "arrows", &SettingsLayout::arrows, { { { 176, 437, 44, 24 }, { 305, 794, 76, 44 }, { 644, 1677, 160, 93 } } } },
    { "colourPreview",
      &SettingsLayout::colourPreview,
      { { { 20, 473, 200, 24 }, { 35, 860, 347, 44 }, { 75, 1816, 734, 93 } } } },
    { "floorSlider",
      &SettingsLayout::floorSlider,
      { { { 20, 502, 50, 21 }, { 35, 912, 86, 39 }, { 75, 1926, 182, 82 } } } },
    { "ceilingSlider",
      &SettingsLayout::ceilingSlider,
      { { { 170, 502, 50, 21 }, { 295, 912, 86, 39 }, { 624, 1926, 182, 82 } } } },
} };

TEST (SettingsLayoutTest, PutsEveryItemAtItsPlaceInTheDesign)
{
    static_assert (sizeof (SettingsLayout) == rows.size() * sizeof (Bounds), "every item has a row");

    for (size_t i = 0; i < sizes.size(); ++i)
    {
        const auto layout = SettingsLayout::forSize (sizes[i].x, sizes[i].y);

        for (const auto& row : rows)
            EXPECT_EQ (layout.*row.item, row.bounds[i])
                << row.name << " at " << sizes[i].toString() << ": " << (layout.*row.item).toString();
    }
}

TEST (SettingsLayoutTest, AlignsTheTogglesOfTheScaleWithTheEndOfTheModeBar)
{
    for (int width = 20; width < 1000; width += 7)
    {
        const auto layout = SettingsLayout::forSize (width, 500);
        const auto toggleWidth = layout.rulerToggle.getWidth();
        EXPECT_EQ (layout.rulerToggle.getRight(), layout.modeBar.getRight());
        EXPECT_EQ (layout.keyboardToggle.getX(),
                   layout.modeBar.getRight() - (juce::roundToInt (1.1f * float (toggleWidth)) + toggleWidth));
        EXPECT_EQ (layout.keyboardToggle.getY(), layout.scaleBox.getY());
        EXPECT_EQ (layout.keyboardToggle.getHeight(), layout.scaleBox.getHeight());
    }
}

TEST (SettingsLayoutTest, StaysInsideATinyPanel)
{
    for (const auto side : { 0, 1, 2, 3, 5, 10, 23, 100 })
    {
        const auto layout = SettingsLayout::forSize (side, side);
        const Bounds panel (side, side);

        // Position and size are rounded separately, so an item may end one pixel further.
        for (const auto& row : rows)
            EXPECT_TRUE (panel.expanded (1).contains (layout.*row.item)) << row.name << " at " << side;
    }
}
} // namespace
} // namespace mk::orlo
