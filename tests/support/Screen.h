// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

namespace mk::orlo::test
{

/** The screen that DISPLAY names, for tests that open windows. [message thread] */
class Screen
{
public:
    /** Connects at the first call, which must come before JUCE connects: on a fresh server nobody yet knows
        the names that JUCE asks for. */
    [[nodiscard]] static Screen& getInstance();

    [[nodiscard]] bool isAvailable() const noexcept { return connection != nullptr; }

    /** Moves the real mouse; the windows hear of it as they would from the user. */
    void moveMouseTo (juce::Point<int> position);

    /** A window of a host, mapped at the screen's upper left, for an editor to lie in. */
    [[nodiscard]] void* createHostWindow (int width, int height);

    /** Puts such a window onto the screen or, as a window manager does that minimises it, takes it off. */
    void setMapped (void* hostWindow, bool shouldBeMapped);
    void destroyHostWindow (void* hostWindow);

    /** Sends the keys to such a window, as a window manager does when the user clicks into it. */
    void giveKeyboardTo (void* hostWindow);

    /** Presses or lets go of a button of the real mouse where it stands: 1 left, 2 middle, 3 right, 4 and 5 the wheel. */
    void setButton (int button, bool isDown);

    /** Presses or lets go of a key of the real keyboard by its X11 symbol, such as 0xff09 for Tab. */
    void setKey (unsigned long symbol, bool isDown);

    /** What X11 calls the keys that tests press. */
    static constexpr unsigned long tabKey = 0xff09, returnKey = 0xff0d, escapeKey = 0xff1b, spaceKey = 0x20,
                                   shiftKey = 0xffe1, controlKey = 0xffe3, downKey = 0xff54, menuKey = 0xff67,
                                   f10Key = 0xffc7;

private:
    Screen();

    // Never closed, or else what the libraries hold would look lost to a leak check.
    void *library = nullptr, *testLibrary = nullptr;
    void* connection = nullptr; // open until the program ends, or else the server forgets everything
};

} // namespace mk::orlo::test
