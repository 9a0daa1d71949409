// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The values that the layout of the window depends on. */
struct MainLayoutInput
{
    int width, height;
    bool isFullView;
    bool isRulerOn, isKeyboardOn;
    bool isSettingsPanelVisible;
    bool isFreezeButtonVisible;
};

/** The bounds of everything in the window, in its coordinates. Hidden parts have bounds too. */
struct MainLayout
{
    juce::Rectangle<int> sideBar, settingsPanel, spectrogram;
    juce::Rectangle<int> viewButton, freezeButton, exportButton;
};

/** Lays the window out. The side bar takes a twentieth of the width, the settings panel 23 %, the picture
    the rest; the floating buttons do not overlap the ruler and the keyboard. Nothing is ever wider or
    higher than the window. Any thread. */
[[nodiscard]] MainLayout layOutMain (const MainLayoutInput& input) noexcept;

} // namespace mk::orlo
