// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo::test
{

/** The screen that DISPLAY names, for tests that open windows. [message thread] */
class Screen
{
public:
    /** Connects at the first call, which must come before JUCE connects: a fresh server does not yet have the
        atoms that JUCE asks for. */
    [[nodiscard]] static Screen& getInstance();

    [[nodiscard]] bool isAvailable() const noexcept { return connection != nullptr; }

    /** Moves the real mouse; the windows get the same events as from a user. */
    void moveMouseTo (juce::Point<int> position);

    /** Creates a window of a host, mapped at the screen's upper left, to hold an editor. */
    [[nodiscard]] void* createHostWindow (int width, int height);

    /** Maps such a window or, as a window manager does to minimise it, unmaps it. */
    void setMapped (void* hostWindow, bool shouldBeMapped);
    void destroyHostWindow (void* hostWindow);

    /** Gives such a window the keyboard focus, as a window manager does when the user clicks into it. */
    void giveKeyboardTo (void* hostWindow);

    /** Presses or releases a button of the real mouse where it is: 1 left, 2 middle, 3 right, 4 and 5 the wheel. */
    void setButton (int button, bool isDown);

    /** Presses or releases a key of the real keyboard by its X11 symbol, such as 0xff09 for Tab. */
    void setKey (unsigned long symbol, bool isDown);

    /** The X11 symbols of the keys that tests press. */
    static constexpr unsigned long tabKey = 0xff09, returnKey = 0xff0d, escapeKey = 0xff1b, spaceKey = 0x20,
                                   shiftKey = 0xffe1, controlKey = 0xffe3, downKey = 0xff54, menuKey = 0xff67,
                                   f10Key = 0xffc7;

private:
    Screen();

    // Never closed: a leak check would report what the libraries hold as lost.
    void *library = nullptr, *testLibrary = nullptr;
    void* connection = nullptr; // open until the program ends: without a client the server resets
};

} // namespace mk::orlo::test
