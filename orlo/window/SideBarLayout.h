// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo
{

/** Where the buttons of the side bar stand, in pixels relative to it. */
struct SideBarLayout
{
    /** Lays a side bar of the given size out: three cells as high as the bar is wide at the top, the about
        button at the bottom. In a bar that is too short the lower ones lose their height first. Any thread. */
    [[nodiscard]] static SideBarLayout forSize (int width, int height) noexcept;

    juce::Rectangle<int> settings, freeze, exportPicture, about;
};

} // namespace mk::orlo
