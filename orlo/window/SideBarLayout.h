// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** The bounds of the side bar's buttons, in pixels relative to it. */
struct SideBarLayout
{
    /** Lays out a side bar of the given size: three cells as high as the bar is wide at the top, the About
        button at the bottom. In a bar that is too short the lower ones lose their height first. Any thread. */
    [[nodiscard]] static SideBarLayout forSize (int width, int height) noexcept;

    juce::Rectangle<int> settings, freeze, exportPicture, about;
};

} // namespace mk::orlo
