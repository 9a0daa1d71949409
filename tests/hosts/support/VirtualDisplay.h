// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

#include <memory>

namespace mk::orlo::test
{

/** A display of the test's own, and what a window manager would do on it. Of its own, because windows of
    tests that run at the same time would cover each other, and what is covered is not in a picture of the
    screen. */
class VirtualDisplay
{
public:
    /** Starts Xvfb. */
    VirtualDisplay();

    /** Stops it. */
    ~VirtualDisplay();

    /** As in the environment, ":1". Empty if Xvfb does not start. */
    [[nodiscard]] const juce::String& getName() const noexcept { return name; }

    /** Does to the window of a title what a click on its close button would. False if there is none. */
    bool closeWindow (const juce::String& title);

    /** Moves the window of a title to a place on the screen. Nothing happens if there is none. */
    void moveWindow (const juce::String& title, juce::Point<int> position);

private:
    class Connection;

    juce::ChildProcess server;
    juce::String name;
    std::unique_ptr<Connection> connection;

    JUCE_DECLARE_NON_COPYABLE (VirtualDisplay)
};

} // namespace mk::orlo::test
