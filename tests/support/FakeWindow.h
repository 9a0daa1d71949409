// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

namespace mk::orlo::test
{

/** A component on a desktop that exists only in the test: its window is where the test puts it, and no display
    server is asked. */
class FakeWindow : public juce::Component
{
public:
    FakeWindow();
    ~FakeWindow() override;

    /** Moves the window without any message, as a host does with the window around a plug-in. */
    void moveSilently (juce::Point<float> screenPosition);

    /** Notifies the components of a refresh of the display at that time, in seconds. */
    void refreshDisplay (double time);

    /** How often a part of the window was asked to be painted again. */
    [[nodiscard]] int getNumRepaints() const;

private:
    class Peer;

    [[nodiscard]] Peer& getFakePeer() const;

    juce::ComponentPeer* createNewPeer (int styleFlags, void*) override;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (FakeWindow)
};

} // namespace mk::orlo::test
