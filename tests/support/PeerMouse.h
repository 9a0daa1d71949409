// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "Window.h"

#include <gtest/gtest.h>

namespace mk::orlo::test
{

/** Uses the mouse on the components of a real window: the real pointer is moved, and what its buttons and its
    wheel do is delivered to the window as the system would. [message thread] */
class PeerMouse
{
public:
    using Modifiers = juce::ModifierKeys;

    static constexpr int left = Modifiers::leftButtonModifier;
    static constexpr int right = Modifiers::rightButtonModifier;
    static constexpr int middle = Modifiers::middleButtonModifier;
    static constexpr int ctrl = Modifiers::ctrlModifier;

    explicit PeerMouse (Window& windowToUse) : window (windowToUse) {}

    /** Presses at a place in the component or in a child of it. */
    void press (juce::Component& component, juce::Point<float> position, int modifiers = left)
    {
        moveTo (component, position);
        time += longAfter;
        send (component, position, modifiers);
    }

    void drag (juce::Component& component, juce::Point<float> position, int modifiers = left)
    {
        time += 20;
        send (component, position, modifiers);
    }

    void release (juce::Component& component, juce::Point<float> position, int modifiers = left)
    {
        time += 20;
        send (component, position, modifiers & Modifiers::allKeyboardModifiers);
    }

    void click (juce::Component& component, juce::Point<float> position, int modifiers = left)
    {
        press (component, position, modifiers);
        release (component, position, modifiers);
    }

    void doubleClick (juce::Component& component, juce::Point<float> position, int modifiers = left)
    {
        click (component, position, modifiers);
        time += 50;
        send (component, position, modifiers);
        release (component, position, modifiers);
    }

    /** Turns the wheel by a part of its range, upwards if positive. */
    void turnWheel (juce::Component& component, juce::Point<float> position, float amount)
    {
        moveTo (component, position);
        time += longAfter;
        juce::MouseWheelDetails wheel;
        wheel.deltaX = 0.0f;
        wheel.deltaY = amount;
        wheel.isReversed = wheel.isSmooth = wheel.isInertial = false;
        window.getPeer()->handleMouseWheel (
            juce::MouseInputSource::InputSourceType::mouse, getPlace (component, position), time, wheel);
    }

private:
    static constexpr juce::int64 longAfter = 10000; // so that two clicks are no double click

    [[nodiscard]] juce::Point<float> getPlace (juce::Component& component, juce::Point<float> position) const
    {
        return window.getLocalPoint (&component, position);
    }

    void moveTo (juce::Component& component, juce::Point<float> position)
    {
        const auto place = component.localPointToGlobal (position).roundToInt();
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
        Screen::getInstance().moveMouseTo (place);
        ASSERT_TRUE (pumpUntil (
            [&]
            {
                const auto* under = mouse.getComponentUnderMouse();
                return under != nullptr && (under == &component || component.isParentOf (under));
            }));
    }

    void send (juce::Component& component, juce::Point<float> position, int modifiers)
    {
        const juce::ScopedValueSetter<Modifiers> held (Modifiers::currentModifiers, Modifiers (modifiers), Modifiers());
        window.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse,
                                            getPlace (component, position),
                                            Modifiers (modifiers),
                                            juce::MouseInputSource::defaultPressure,
                                            juce::MouseInputSource::defaultOrientation,
                                            time);
    }

    Window& window;
    juce::int64 time = nextStart();

    /** A time later than every event of the mice before. */
    [[nodiscard]] static juce::int64 nextStart()
    {
        static auto start = juce::Time::currentTimeMillis();
        return start += 10 * longAfter;
    }
};

} // namespace mk::orlo::test
