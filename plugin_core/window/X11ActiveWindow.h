// SPDX-License-Identifier: AGPL-3.0-or-later
#pragma once

#include <juce_core/juce_core.h>

#include <memory>

namespace mk::pluginCore
{

/** Asks an X server which window its window manager calls the active one, and which are hidden with the
    windows around them. Has a connection of its own, and one that reports errors to the caller: through Xlib, a window that closes at the wrong moment would end
    the host's process. Linux only; one thread at a time. */
class X11ActiveWindow
{
public:
    /** Connects to the given display, or to the one that the environment names. */
    explicit X11ActiveWindow (const juce::String& displayName = {});
    ~X11ActiveWindow();

    /** Whether the active window is this process's or holds the given window, which is the case for a
        plug-in that runs in a process apart from its host. The window is an X window's id, or null for none.
        True too if there is no X server, or no window manager that tells. Takes some round trips to the
        server. */
    [[nodiscard]] bool belongsTo (void* window) const;

    /** Whether the window and all those around it are mapped: a window manager takes a minimised window off
        the screen, and a plug-in's window with it, which does not hear of that. True too if the server cannot
        tell. Takes a round trip to the server. */
    [[nodiscard]] bool isViewable (void* window) const;

    /** The one that this process asks. [message thread] */
    [[nodiscard]] static const X11ActiveWindow& getShared();

private:
    class Connection;
    std::unique_ptr<Connection> connection;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (X11ActiveWindow)
};

} // namespace mk::pluginCore
