// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The bounds of everything in the settings panel, in pixels relative to the panel. */
struct SettingsLayout
{
    /** Lays out a panel of the given size. Every item has the same share of the width and of the height in a
        panel of any size. Any thread. */
    [[nodiscard]] static SettingsLayout forSize (int width, int height) noexcept;

    juce::Rectangle<int> title, presetsButton;
    juce::Rectangle<int> analysisHeading, modeBar, fftSizeLabel, fftSizeBox;
    juce::Rectangle<int> displayHeading, hiDPILabel, drawModeBar, autoFreezeToggle;
    juce::Rectangle<int> scaleLabel, scaleBox, keyboardToggle, rulerToggle;
    juce::Rectangle<int> speedLabel, speedSlider, maxFreqLabel, maxFreqSlider, minFreqLabel, minFreqSlider;
    juce::Rectangle<int> colourHeading, colourBox, arrows, colourPreview, floorSlider, ceilingSlider;
};

} // namespace mk::orlo
