// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** What decides on the layout of the window. */
struct MainLayoutInput
{
    int width, height;
    bool isFullView;
    bool isRulerOn, isKeyboardOn;
    bool isSettingsPanelVisible;
    bool isFreezeButtonVisible;
};

/** Where everything in the window stands, in its coordinates. What is not shown has the bounds all the same. */
struct MainLayout
{
    juce::Rectangle<int> sideBar, settingsPanel, spectrogram;
    juce::Rectangle<int> viewButton, freezeButton, exportButton;
};

/** Lays the window out. The side bar takes a twentieth of the width, the settings panel 23 %, the picture
    the rest; the floating buttons keep out of the ruler and the keyboard. Nothing is ever wider or higher
    than the window. Any thread. */
[[nodiscard]] MainLayout layOutMain (const MainLayoutInput& input) noexcept;

} // namespace mk::orlo
