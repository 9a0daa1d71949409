// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <memory>

namespace mk::orlo::test
{

/** A display for one test, with the actions of a window manager on it. On a shared display the windows of
    tests that run at the same time would cover each other, and a picture of the screen shows nothing that is
    covered. */
class VirtualDisplay
{
public:
    /** Starts Xvfb. */
    VirtualDisplay();

    /** Stops it. */
    ~VirtualDisplay();

    /** The value for the environment's DISPLAY, such as ":1". Empty if Xvfb does not start. */
    [[nodiscard]] const juce::String& getName() const noexcept { return name; }

    /** Closes the window with a title as a click on its close button does. False if there is none. */
    bool closeWindow (const juce::String& title);

    /** Moves the window with a title to a place on the screen. Nothing happens if there is none. */
    void moveWindow (const juce::String& title, juce::Point<int> position);

private:
    class Connection;

    juce::ChildProcess server;
    juce::String name;
    std::unique_ptr<Connection> connection;

    JUCE_DECLARE_NON_COPYABLE (VirtualDisplay)
};

} // namespace mk::orlo::test
