// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

namespace mk::orlo::lifecycle
{

/** The host's own connection to the X server. Ends the program with a message if there is no server.

    Xlib is loaded as the plug-in loads it, not linked: a library that the program itself is linked with is never
    unloaded, and a host need not be linked with it. */
class Screen
{
public:
    Screen();
    ~Screen();

    Screen (const Screen&) = delete;
    Screen& operator= (const Screen&) = delete;

    /** A window on the screen, to put an editor into. */
    [[nodiscard]] unsigned long createWindow();
    void destroyWindow (unsigned long window);

private:
    void* const library;
    void* const display;
};

} // namespace mk::orlo::lifecycle
