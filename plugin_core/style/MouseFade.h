// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "GenericComponentAnimator.h"

#include <juce_gui_basics/juce_gui_basics.h>

/** Converts the times of a control's mouse animation to factors for drawing code. [message thread] */
namespace mk::pluginCore::mouseFade
{

/** The durations of this style's fades, in milliseconds. */
inline constexpr int enterMs = 120;
inline constexpr int leaveMs = 240;
inline constexpr int turnMs = 360;

/** The progress of the fade that follows the event, 0 to 1; 1 if its duration is 0. */
[[nodiscard]] float progress (const GenericComponentAnimator::Times& times,
                              GenericComponentAnimator::State event) noexcept;

/** The strength of a control's hover effect, 0 to 1. */
[[nodiscard]] float hoverFactor (const GenericComponentAnimator::Times& times, bool isMouseOver) noexcept;

/** The same for any component: one without an animation goes from 0 to 1 at once. */
[[nodiscard]] float hoverFactor (const juce::Component& component);
[[nodiscard]] float hoverFactor (const juce::Component& component, bool isMouseOver);

/** The angle of a rotating control, in radians: it makes a full turn during the fade of the mouse's entering
    or, with onMouseDown, of the press, and is 0 before and after. */
[[nodiscard]] float turnAngle (const GenericComponentAnimator::Times& times, bool onMouseDown) noexcept;

} // namespace mk::pluginCore::mouseFade
