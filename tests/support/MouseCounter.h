// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::test
{

/** Counts the mouse events of a component. */
class MouseCounter final : private juce::MouseListener
{
public:
    explicit MouseCounter (juce::Component& componentToWatch) : component (componentToWatch)
    {
        component.addMouseListener (this, false);
    }

    ~MouseCounter() override { component.removeMouseListener (this); }

    int numDown = 0, numDragged = 0, numUp = 0;

private:
    void mouseDown (const juce::MouseEvent&) override { ++numDown; }
    void mouseDrag (const juce::MouseEvent&) override { ++numDragged; }
    void mouseUp (const juce::MouseEvent&) override { ++numUp; }

    juce::Component& component;

    JUCE_DECLARE_NON_COPYABLE (MouseCounter)
};

} // namespace mk::orlo::test
