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
        Screen::getInstance().moveMouseTo (component.localPointToGlobal (position).roundToInt());
        const auto mouse = juce::Desktop::getInstance().getMainMouseSource();
        return pumpUntil ([&] { return mouse.getComponentUnderMouse() == &component; });
    }
};

} // namespace mk::orlo::test
