// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "orlo/window/SettingsLayout.h"

#include <array>

namespace mk::orlo::test
{

/** An item of the settings panel, the id of its component, and its bounds in panels of each of the sizes. */
struct SettingsItem
{
    const char* id;
    juce::Rectangle<int> SettingsLayout::*place;
    std::array<juce::Rectangle<int>, 3> bounds;
};

inline constexpr std::array settingsSizes { juce::Point<int> (241, 550),
                                            juce::Point<int> (418, 1000),
                                            juce::Point<int> (883, 2112) };

inline const std::array<SettingsItem, 26> settingsItems { {
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

} // namespace mk::orlo::test
