// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include "MessageLoop.h"
#include "Screen.h"

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::test
{

/** A frameless window at the screen's upper left, open as long as the object exists. */
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

    /** Moves the real mouse and waits until it is over the component. */
    [[nodiscard]] bool moveMouseTo (juce::Component& component, juce::Point<float> position)
    {
        const auto target = component.localPointToGlobal (position).roundToInt();
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();

        // The mouse may have been here already when the window opened; moving it here again would then cause no
        // event. So it comes from beside, and more than once.
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
