// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MessageLoop.h"
#include "Screen.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::test
{

/** A window without a frame at the screen's upper left, open as long as it lives. */
class Window final : public juce::Component
{
public:
    Window (int width, int height)
    {
        setOpaque (true);
        setBounds (0, 0, width, height);
        addToDesktop (juce::ComponentPeer::windowIsTemporary);
        setVisible (true);
    }

    ~Window() override { removeFromDesktop(); }

    void paint (juce::Graphics& g) override { g.fillAll (juce::Colours::darkgrey); }

    /** Moves the real mouse and waits until the component has it. */
    [[nodiscard]] bool moveMouseTo (juce::Component& component, juce::Point<float> position)
    {
        const auto target = component.localPointToGlobal (position).roundToInt();
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();

        // From beside it, and more than once: a mouse that stood there already when the window opened would
        // not have moved.
        return pumpUntil (
            [&, tries = 0]() mutable
            {
                if (tries % 10 == 0)
                    Screen::getInstance().moveMouseTo (target + juce::Point { tries % 20 == 0 ? 1 : 0, 0 });

                ++tries;
                return mouse.getComponentUnderMouse() == &component;
            });
    }
};

} // namespace mk::orlo::test
