// SPDX-License-Identifier: AGPL-3.0-or-later
#include "MouseFade.h"

#include <algorithm>

namespace mk::pluginCore::mouseFade
{
using State = GenericComponentAnimator::State;

namespace
{
constexpr float fullTurn = 6.2831855f;
}

float progress (const GenericComponentAnimator::Times& times, State event) noexcept
{
    const auto elapsed = times.elapsed[size_t (event)];
    const auto duration = times.durations[size_t (event)];
    return duration > 0 ? std::clamp (float (elapsed) / float (duration), 0.0f, 1.0f) : 1.0f;
}

float hoverFactor (const GenericComponentAnimator::Times& times, bool isMouseOver) noexcept
{
    if (times.state == State::entered)
        return progress (times, State::entered);

    if (times.state == State::left)
        return 1.0f - progress (times, State::left);

    return isMouseOver ? 1.0f : 0.0f;
}

float hoverFactor (const juce::Component& component)
{
    return hoverFactor (component, component.isMouseOverOrDragging (true));
}

float hoverFactor (const juce::Component& component, bool isOver)
{
    const auto* animator = dynamic_cast<const GenericComponentAnimator*> (&component);
    return animator != nullptr ? hoverFactor (animator->getMouseAnimationTimes(), isOver) : (isOver ? 1.0f : 0.0f);
}

float turnAngle (const GenericComponentAnimator::Times& times, bool onMouseDown) noexcept
{
    const auto event = onMouseDown ? State::pressed : State::entered;

    if (times.state != event)
        return 0.0f;

    const auto turned = progress (times, event);
    return turned < 1.0f ? turned * fullTurn : 0.0f;
}

} // namespace mk::pluginCore::mouseFade
