// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "GenericComponentAnimator.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** From the times of a control's mouse animation to factors that drawing code uses. [message thread] */
namespace mk::pluginCore::mouseFade
{

/** How long fades take that look right with this style, in milliseconds. */
inline constexpr int enterMs = 120;
inline constexpr int leaveMs = 240;
inline constexpr int turnMs = 360;

/** How far the fade that follows the event has come, 0 to 1; 1 if it takes no time. */
[[nodiscard]] float progress (const GenericComponentAnimator::Times& times,
                              GenericComponentAnimator::State event) noexcept;

/** How much a control shows the mouse over it, 0 to 1. */
[[nodiscard]] float hoverFactor (const GenericComponentAnimator::Times& times, bool isMouseOver) noexcept;

/** The same for any component: one without an animation goes from 0 to 1 at once. */
[[nodiscard]] float hoverFactor (const juce::Component& component);
[[nodiscard]] float hoverFactor (const juce::Component& component, bool isMouseOver);

/** By how much a turning control is turned, in radians: a full turn while the fade of the mouse's coming,
    or with onMouseDown that of the press, runs, and 0 before and after. */
[[nodiscard]] float turnAngle (const GenericComponentAnimator::Times& times, bool onMouseDown) noexcept;

} // namespace mk::pluginCore::mouseFade
