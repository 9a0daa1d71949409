// SPDX-License-Identifier: AGPL-3.0-or-later
#include "ComponentMouseAnimator.h"

#include "ComponentIgnoringRightButton.h"

#include <algorithm>
#include <limits>

namespace mk::pluginCore
{

ComponentMouseAnimator::ComponentMouseAnimator (juce::Component& componentToWatch, int tickInMs)
    : component (&componentToWatch), tickMs (std::max (tickInMs, 1))
{
    // Children count as part of the component: a text box may cover all of a slider.
    componentToWatch.addMouseListener (this, true);
    componentToWatch.addComponentListener (this);
}

ComponentMouseAnimator::~ComponentMouseAnimator()
{
    if (component != nullptr)
    {
        component->removeComponentListener (this);
        component->removeMouseListener (this);
    }
}

void ComponentMouseAnimator::setDuration (State event, int milliseconds) noexcept
{
    times.durations[size_t (event)] = std::max (milliseconds, 0);
}

void ComponentMouseAnimator::press() { start (State::pressed); }
void ComponentMouseAnimator::release() { start (State::released); }
void ComponentMouseAnimator::click() { start (State::clicked); }

void ComponentMouseAnimator::update()
{
    if (component != nullptr)
        component->repaint();
}

void ComponentMouseAnimator::start (State event)
{
    if (times.state == event)
        return;

    times.elapsed[size_t (event)] = 0;
    times.state = event;
    startTimer (tickMs);
}

void ComponentMouseAnimator::timerCallback()
{
    auto allOver = true;

    for (size_t i = GenericComponentAnimator::numStates; i-- > 0;)
    {
        auto& elapsed = times.elapsed[i];
        elapsed = std::min (elapsed, std::numeric_limits<int>::max() - tickMs) + tickMs;
        allOver = allOver && elapsed >= times.durations[i];
    }

    if (allOver)
    {
        times.state = State::idle;
        stopTimer();
    }

    update();
}

void ComponentMouseAnimator::mouseEnter (const juce::MouseEvent&)
{
    if (mouseOverToken == nullptr)
        mouseOverToken = std::make_unique<MouseOverToken>();

    start (State::entered);
}

void ComponentMouseAnimator::mouseExit (const juce::MouseEvent&) { leaveUnlessInside(); }

void ComponentMouseAnimator::mouseDown (const juce::MouseEvent& event)
{
    isPressIgnored = ! isEditingClick (event.mods);

    if (! isPressIgnored)
        press();
}

void ComponentMouseAnimator::mouseUp (const juce::MouseEvent&)
{
    if (! isPressIgnored)
        release();

    leaveUnlessInside();
}

void ComponentMouseAnimator::leaveUnlessInside()
{
    if (component == nullptr || component->isMouseOver (true))
        return;

    mouseOverToken.reset();
    start (State::left);
}

void ComponentMouseAnimator::componentVisibilityChanged (juce::Component& changed)
{
    // A hidden component gets no mouseExit().
    if (! changed.isVisible())
        forgetEverything();
}

void ComponentMouseAnimator::componentBeingDeleted (juce::Component&)
{
    forgetEverything();
    component = nullptr;
}

void ComponentMouseAnimator::forgetEverything()
{
    stopTimer();
    times.state = State::idle;
    mouseOverToken.reset();
}

} // namespace mk::pluginCore
